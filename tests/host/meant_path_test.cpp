#include "host/service/meant_path.h"

#include <gtest/gtest.h>

#include "tests/host/toy.h"

namespace host {
namespace {

TEST(MeantPath, GivesQuotesClassAndKeyBack) {
  const std::pair<const char*, const char*> rows[] = {
      {"Toy.Id=a", R"(Toy.Id="a")"},
      {"toy.id=a b", R"(Toy.Id="a b")"},
      {"Toy.a", R"(Toy.Id="a")"},
      {"Toy=a\\b", R"(Toy.Id="a\\b")"},
      {"Id=a", R"(Base.Id="a")"},
      {R"(\\.\root\cimv2:Toy.Id=a)", R"(\\.\root\cimv2:Toy.Id="a")"},
      {"Pair.Left=x,Right=1,Flag=TRUE", R"(Pair.Left="x",Right=1,Flag=TRUE)"},
      {"Right=1,Left=x,Flag=TRUE", R"(Pair.Left="x",Right=1,Flag=TRUE)"},
      // Paths that are correct, and paths that say too little.
      {"Toy.Id=\"a\"", nullptr},
      {"Toy.Id='a'", nullptr},
      {"Only=@", nullptr},
      {"Toy", nullptr},
      {"Toy.Id=", nullptr},
      {"Toy.Count=1", nullptr},
      {"Pair.Left=x", nullptr},
      {"Pair.x", nullptr},
      {"7", nullptr},
      {"Nothing.Id=a", nullptr},
      {"", nullptr},
  };
  for (const auto& [path, meant] : rows) {
    EXPECT_EQ(MeantPath(path, ToyRepository()).value_or("-"), meant == nullptr ? "-" : meant)
        << path;
  }
}

}  // namespace
}  // namespace host
