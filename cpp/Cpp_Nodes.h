#ifndef KERFLINE_CPP_NODES_H
#define KERFLINE_CPP_NODES_H

// Every node class of the tree.
//
// Each field x of a node has a getter x() and a setter setX(); a named child also has releaseX(),
// which hands it out. Setters of children take ownership and free what was there before.

#include "cpp/Cpp_DeclNodes.h"
#include "cpp/Cpp_FunctionNodes.h"
#include "cpp/Cpp_InteriorNode.h"
#include "cpp/Cpp_InteriorNodes.h"
#include "cpp/Cpp_LeafNodes.h"
#include "cpp/Cpp_StatementNodes.h"
#include "cpp/Cpp_SyntaxNode.h"

#endif
