#ifndef KERFLINE_TESTS_CPP_PARSERTESTTOOLS_H
#define KERFLINE_TESTS_CPP_PARSERTESTTOOLS_H

#include "cpp/Cpp_Nodes.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Message.h"

#include <string>
#include <vector>

/// A text, and what the parser made of it.
struct Parsed {
    explicit Parsed(const std::string& source);

    Zelmar::SourceText source;
    Cpp::RootNode root;
    Trn::MessageList messages;
};

/// What a node shows: its class without "Node", its own text, and its children in source order.
struct NodeView {
    std::string name;
    std::string text;
    std::vector<Cpp::SyntaxNode*> children;
};
NodeView viewOf(Cpp::SyntaxNode& node);

/// The tree on one line: the class of each node, its text in quotes and its children in braces.
///
///     int a = 1;      Root{DataDecl{Type'int' Id'a' Expr'= 1'}}
std::string treeAsText(Cpp::SyntaxNode& node);

/// The message texts in order, each as "line:column text", with "; " between them. Notes, which
/// stop nothing, are left out.
std::string errorsAsText(const Parsed& parsed);

/// The source text that a node covers.
std::string coveredText(const Parsed& parsed, const Cpp::SyntaxNode& node);

/// The first node of the given class (without "Node") in the order of the text, or null.
Cpp::SyntaxNode* findNode(Cpp::SyntaxNode& root, const std::string& name);

/// Describes the first place where extents do not nest, ascend and keep apart; empty if all do.
std::string extentFault(const Parsed& parsed);

/// A text and the tree that it makes, without an error.
struct ParseCase {
    const char* name;
    const char* source;
    const char* tree;
};
/// Checks a case, and that the extents of its tree fit into each other.
void checkTree(const ParseCase& row);
/// The same for statements: `source` stands in the body of a function, `tree` is the block's.
void checkStatements(const ParseCase& row);

/// A text and the messages it gives, as by errorsAsText.
struct MessageCase {
    const char* name;
    const char* source;
    const char* errors;
};
void checkMessages(const MessageCase& row);

#endif
