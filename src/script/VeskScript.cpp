#include "script/VeskScript.h"

#include <cctype>

VeskScript::VeskScript() {
    setLastError("No error.", "", kNoLine);
}

VeskScript::~VeskScript() = default;

VeskSyntaxNode* VeskScript::newNode(VeskSyntaxNode* parent) {
    auto node = std::make_unique<VeskSyntaxNode>(parent);
    VeskSyntaxNode* raw = node.get();
    nodes.emplace(raw, std::move(node));
    return raw;
}

VeskVariable* VeskScript::newVariable() {
    auto variable = std::make_unique<VeskVariable>();
    VeskVariable* raw = variable.get();
    variables.emplace(raw, std::move(variable));
    return raw;
}

void VeskScript::deleteNode(VeskSyntaxNode* node) {
    nodes.erase(node);
}

void VeskScript::deleteVariable(VeskVariable* variable) {
    variables.erase(variable);
}

void VeskScript::toUpperString(std::string& text) {
    for (char& c : text) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
}

void VeskScript::setLastError(const std::string& error, const std::string& detail, int line) {
    recordError({error, detail, "", currentFile(), line});
}

void VeskScript::recordError(VeskError parts) {
    lastError = parts.line == kNoLine ? parts.describe()
                                      : "At line " + std::to_string(parts.line) + " : " + parts.describe();
    lastErrorParts = std::move(parts);
}

std::string VeskScript::getLastError() const {
    return lastError;
}

VeskSyntaxNode* VeskScript::findFunction(const std::string& name) const {
    auto found = functions.find(name);
    return found == functions.end() ? nullptr : found->second;
}

VeskVariable* VeskScript::findGlobal(const std::string& name) const {
    auto found = globals.find(name);
    return found == globals.end() ? nullptr : found->second;
}

std::vector<VeskVariable>& VeskScript::getRuntimeStack() {
    return runtimeStack;
}

bool VeskScript::addFunction(std::string name, HostFunction hostFunction) {
    toUpperString(name);
    if (findFunction(name) || findGlobal(name)) {
        setLastError("function redefined", name, kNoLine);
        return false;
    }
    VeskSyntaxNode* external = newNode(nullptr);
    external->kind = NodeExternal;
    external->text = name;
    external->hostFunction = hostFunction;
    functions[name] = external;
    return true;
}

bool VeskScript::invokeExternal(std::string name, int) {
    return findFunction(name) == nullptr;
}

void VeskScript::remove(VeskSyntaxNode* node) {
    if (!node) {
        return;
    }
    if (node->kind == NodeConstant) {
        deleteVariable(node->variable);
    } else if (node->kind == NodeOperation) {
        remove(node->left);
        remove(node->right);
    }
    deleteNode(node);
}
