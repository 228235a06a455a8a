// The lexer: file text to the token queue.

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>

#include "script/VeskScript.h"

namespace {

enum ScanMode { ModeNormal = 0, ModeComment = 1, ModeString = 2 };

bool isLineEnd(const std::string& text, std::size_t& i) {
    if (text[i] == '\n') {
        return true;
    }
    if (text[i] == '\r') {
        if (i + 1 < text.size() && text[i + 1] == '\n') {
            ++i;
        }
        return true;
    }
    return false;
}

// The characters between the quotes, with \r, \t and \n turned into their control characters and
// any other escaped character taken as it is. A backslash right before the closing quote takes the
// quote.
std::string stringLiteralText(const std::string& word) {
    std::string text;
    for (std::size_t i = 1; i + 1 < word.size(); ++i) {
        char c = word[i];
        if (c == '\\') {
            c = word[++i];
            switch (c) {
                case 'r':
                    c = '\r';
                    break;
                case 't':
                    c = '\t';
                    break;
                case 'n':
                    c = '\n';
                    break;
                default:
                    break;
            }
        }
        text += c;
    }
    return text;
}

}  // namespace

bool VeskScript::readText(const std::string& fileName, std::string& text) {
    std::FILE* file = std::fopen(fileName.c_str(), "rb");
    if (!file) {
        return false;
    }
    text.clear();
    char buffer[1 << 16];
    std::size_t count;
    while ((count = std::fread(buffer, 1, sizeof buffer, file)) > 0) {
        text.append(buffer, count);
    }
    // A directory opens but cannot be read.
    bool unreadable = std::ferror(file) != 0;
    std::fclose(file);
    // The text ends at its first NUL character, as the C string it is handed on as would.
    std::size_t nul = text.find('\0');
    if (nul != std::string::npos) {
        text.resize(nul);
    }
    return !unreadable;
}

bool VeskScript::load(std::string fileName) {
    std::string text;
    if (!readText(fileName, text)) {
        setLastError("Failed to open file.", fileName, kNoLine);
        return false;
    }
    loading.push_back(fileName);
    bool parsed = parse(std::move(text));
    loading.pop_back();
    return parsed;
}

bool VeskScript::parse(std::string text) {
    // An IMPORT parses its file while the importing file's queue waits; the queue is put back
    // however this parse ends.
    struct SetAsideQueue {
        std::deque<VeskToken>& current;
        std::deque<VeskToken> saved;
        ~SetAsideQueue() { current.swap(saved); }
    } setAside{tokens, {}};
    setAside.saved.swap(tokens);
    return scan(text) && parseSyntax();
}

bool VeskScript::scan(const std::string& text) {
    int line = 1;
    int mode = ModeNormal;
    std::string word;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (mode == ModeComment) {
            // A lone carriage return does not end a comment.
            if (c == '\n' || (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n')) {
                isLineEnd(text, i);
                addToken(line, "\n");
                ++line;
                mode = ModeNormal;
            }
        } else if (mode == ModeString) {
            // Line ends stay in the string and are not counted: later lines are numbered that
            // many lines low.
            word += c;
            if (c == '"') {
                addToken(line, word);
                word.clear();
                mode = ModeNormal;
            }
        } else if (c == '\t' || c == ' ') {
            addToken(line, word);
            word.clear();
        } else if (isLineEnd(text, i)) {
            addToken(line, word);
            addToken(line, "\n");
            word.clear();
            ++line;
        } else if (c == '"') {
            addToken(line, word);
            word = "\"";
            mode = ModeString;
        } else if (c == '\'') {
            addToken(line, word);
            word.clear();
            mode = ModeComment;
        } else if (std::isalpha(static_cast<unsigned char>(c)) ||
                   std::isdigit(static_cast<unsigned char>(c)) || c == '.') {
            word += c;
        } else {
            addToken(line, word);
            addToken(line, std::string(1, c));
            word.clear();
        }
    }
    // A word still pending here is dropped: script files end with a line end.
    if (mode == ModeString) {
        setLastError("Unclosed string.", "missing \"", line);
        return false;
    }
    return true;
}

void VeskScript::addToken(int line, std::string word) {
    if (word.empty()) {
        return;
    }
    if (word.size() == 1 && word[0] != '\0' && std::strchr(operators, word[0])) {
        // Only the previous token's text counts, not its kind nor the blanks between: "<" and "="
        // apart still make "<=".
        if (!tokens.empty() && tokens.back().text.size() == 1) {
            std::string& last = tokens.back().text;
            if ((last == "<" && (word == "=" || word == ">")) || (last == ">" && word == "=")) {
                last += word;
                return;
            }
        }
        tokens.emplace_back(line, TokenOperator, std::move(word));
        return;
    }
    if (word[0] == '"') {
        tokens.emplace_back(line, TokenString, stringLiteralText(word));
        return;
    }
    if (std::isdigit(static_cast<unsigned char>(word[0])) || word[0] == '.') {
        tokens.emplace_back(line, TokenNumber, std::move(word));
        return;
    }
    toUpperString(word);
    int id = TokenName;
    const VeskKeyword* keyword = std::find_if(std::begin(tokenStrings), std::end(tokenStrings),
                                              [&](const VeskKeyword& row) { return word == row.word; });
    if (keyword != std::end(tokenStrings)) {
        id = keyword->id;
    }
    tokens.emplace_back(line, id, std::move(word));
}

VeskToken& VeskScript::getToken() {
    if (tokens.empty()) {
        throw VeskSyntaxException("Syntax not finished", "", 0);
    }
    return tokens.front();
}

void VeskScript::popToken() {
    if (!tokens.empty()) {
        tokens.pop_front();
    }
}

void VeskScript::pushToken(VeskToken token) {
    tokens.push_back(std::move(token));
}
