#include "script/VeskSyntaxNode.h"

VeskSyntaxNode::VeskSyntaxNode(VeskSyntaxNode* parent)
    : parent(parent), function(parent ? parent->function : nullptr) {}

VeskSyntaxNode::VeskSyntaxNode(VeskSyntaxNode* parent, VeskSyntaxNode* left, VeskSyntaxNode* right, int line,
                               std::string text)
    : line(line),
      text(std::move(text)),
      left(left),
      right(right),
      parent(parent),
      function(parent ? parent->function : nullptr) {}
