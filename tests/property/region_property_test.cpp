#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "src/format/Norvane_CppCommentWalker.h"
#include "src/format/Norvane_CppPreFormatter.h"
#include "tests/property/Checks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Property::Scheme;
using Property::Source;

// The white space of these is such that every scheme would change almost every line.
constexpr const char* kStatements = R"(int  f( int a ,
  char*b )
    {
 int  x=a+1 ;
	if( x ){
  g( a,b ) ;
      }
 else  {
h( "a very long text for a very narrow line", x+a , b );}
 switch(x)
  {case 1 :
     x=2 ;
 default :
   break ;
  }
 for( i=0;i<3 ;i++ )
   {
  do{ x--; }
 while( x ) ;
   }
      }
#define  A(  x )  x
   int  y=2 ;
)";

constexpr const char* kDeclarations = R"(namespace  n{
  template< class T,
 int  m >
 class  A :public  B ,
     private  C{
 public :
      A( int  a )
  :B( a ) ,
   c_( a ){
  a=1 ; }
     int*  p ;
 private:
  enum  E{ red ,
    green=1 ,
  blue } ;
     } ;
  extern  "C"{
 void  g( ) ;
     int  k=1 ;
  }
   }
   int  z=2 ;
)";

const std::string kOff = "  /* KL-FORMAT-OFF */  \t\n";
const std::string kOn = " \t // KL-FORMAT-ON\n";

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line + '\n');
    return lines;
}

class RegionCount : public Norvane::CppCommentWalker {
public:
    using CppCommentWalker::visit;
    void visit(Cpp::CommentNode& node) override { count_ += node.verbatim() ? 1 : 0; }
    int count() const { return count_; }

private:
    int count_ = 0;
};

/// A marker that stands where a comment is no node does not count.
bool holdsRegion(const std::string& text) {
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::MessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    Norvane::CppPreFormatter pass(Norvane::defaultFormatMarkers());
    root.accept(pass);
    RegionCount regions;
    root.accept(regions);
    return regions.count() > 0;
}

/// `text` with the markers in front of each pair of its lines.
std::vector<Source> withRegions(const char* text) {
    const std::vector<std::string> lines = linesOf(text);
    std::vector<Source> sources;
    for (std::size_t first = 0; first < lines.size(); ++first) {
        for (std::size_t last = first; last <= lines.size(); ++last) {
            std::string marked;
            for (std::size_t i = 0; i <= lines.size(); ++i) {
                if (i == first) marked += kOff;
                if (i == last) marked += kOn;
                if (i < lines.size()) marked += lines[i];
            }
            if (!holdsRegion(marked)) continue;
            sources.push_back({"lines " + std::to_string(first) + " to " + std::to_string(last), marked});
        }
    }
    return sources;
}

class RegionUnder : public testing::TestWithParam<std::string> {};

TEST_P(RegionUnder, ComesOutByteForByteWhateverItCuts) {
    const std::string first = "/* KL-FORMAT-OFF */";
    const std::string last = "// KL-FORMAT-ON\n";
    const Scheme plain = Property::shippedScheme(GetParam());
    for (const char* text : {kStatements, kDeclarations}) {
        const std::vector<Source> sources = withRegions(text);
        EXPECT_GT(sources.size(), 50U);
        for (const Scheme& scheme : {plain, Property::wrappedAt(30, plain)}) {
            EXPECT_EQ(Property::changedStretches(scheme, sources, first, last), "");
            EXPECT_EQ(Property::breaches(scheme, sources, Property::Demand::settle), "");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, RegionUnder, testing::ValuesIn(Property::shippedSchemeNames()),
                         [](const auto& row) { return row.param; });

} // namespace
