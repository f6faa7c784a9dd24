#include "host/query/wql.h"

#include <gtest/gtest.h>

#include "tests/host/toy.h"

namespace host {
namespace {

TEST(Wql, SelectsByCondition) {
  CimObject toy = NewToy("Alpha", 5);
  Put(toy, "On", platform::Variant::Boolean(true));
  struct Row {
    const char* condition;
    bool selected;
  };
  constexpr Row kRows[] = {
      {"Id = 'ALPHA'", true},
      {"id = \"alpha\"", true},
      {"Id <> 'beta'", true},
      {"Id < 'b' and Id >= 'alpha'", true},
      {"Count = 5", true},
      {"Count != +5", false},
      {"Count > -1 AND Count <= 5", true},
      {"Count = '5'", true},
      {"Count = 'five'", false},
      {"Count = '5abc'", false},  // not a number
      {"Count <> 'five'", true},
      {"Id > 3", false},
      {"On = TRUE", true},
      {"On = 1", true},
      {"On <> false", true},
      {"Small = 1", false},
      {"NOT Small = 1", false},  // no value: neither true nor false
      {"Small = 1 OR Count = 5", true},
      {"Small IS NULL", true},
      {"Count IS NOT NULL", true},
      {"Small = NULL", true},
      {"Count <> NULL", true},
      {"NOT (Id = 'x' OR Count = 5)", false},
      {"Id = 'x' AND Count = 1 OR Count = 5", true},
      {"Id = 'x' AND (Count = 1 OR Count = 5)", false},
      {"Id LIKE 'al%'", true},
      {"NOT Id LIKE '%z%'", true},
      {"Note = 'none'", true},  // the default of the class
      {R"(Id <> 'it\'s' AND Id = "al\pha")", true},
      {"Count = 5 AND Small = 1", false},
      {"NOT (Count = 6 OR Small = 1)", false},
      {"Small = 1 AND Count = 6", false},
      {"NOT (Small = 1 AND Count = 5 AND On = 1)", false},  // without a value nothing is selected
      {"NOT (Small = 1 AND Count = 6)", true},
      // A constant on the left, system properties, classes.
      {"'ALPHA' = Id;", true},
      {"'b' > Id AND 'b' >= Id AND NOT ('b' < Id OR 'b' <= Id)", true},
      {"4 < Count AND 6 > Count AND 5 <= Count AND 5 >= Count AND 6 != Count", true},
      {"TRUE = On AND NULL = Small AND NULL <> Count", true},
      {"__CLASS = 'toy' AND __class <> 'Base' AND __RELPATH LIKE 'toy.%'", true},
      {"__SUPERCLASS = 'Base' AND __SUPERCLASS IS NOT NULL", true},
      {"__THIS ISA 'base' AND __this ISA Toy", true},
      {"__this ISA 'Pair'", false},
  };
  for (const Row& row : kRows) {
    const WqlQuery query =
        ParseWql(std::string("SELECT * FROM Toy WHERE ") + row.condition, ToyRepository());
    EXPECT_EQ(query.Selects(toy), row.selected) << row.condition;
  }
}

TEST(Wql, TakesChainsOfAnyLength) {
  std::string condition = "Count = 1";
  for (int side = 0; side < 200'000; ++side) condition += side % 2 == 0 ? " OR On=1" : " AND Id=''";
  const WqlQuery query = ParseWql("SELECT * FROM Toy WHERE " + condition, ToyRepository());
  EXPECT_FALSE(query.Selects(NewToy("alpha", 5)));
  EXPECT_TRUE(query.Selects(NewToy("alpha", 1)));
}

TEST(Wql, MatchesPatterns) {
  struct Row {
    const char* text;
    const char* pattern;
    bool matches;
  };
  constexpr Row kRows[] = {
      {"abc", "abc", true},
      {"abc", "ABC", true},
      {"abc", "ab", false},
      {"abc", "%", true},
      {"", "%", true},
      {"", "_", false},
      {"abc", "a_c", true},
      {"abc", "%b%", true},
      {"abc", "%bd", false},
      {"aXbXc", "a%x%c", true},
      {"aab", "%ab", true},
      {"abc", "[a-c]bc", true},
      {"abc", "[^a]bc", false},
      {"dbc", "[^a-c]bc", true},
      {"a-c", "a[-x]c", true},
      {"-", "[a-z]", false},
      {"a[c", "a[c", true},
      {"50%", "50[%]", true},
      {"aaaaaaaaaaaaaaaaaaaaaaaab", "%a%a%a%a%a%a%a%a%a%a%a%c", false},
      {"\xC3\xBC"
       "b",
       "_b", true},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(MatchesLike(row.text, row.pattern), row.matches) << row.text << " " << row.pattern;
  }
}

TEST(Wql, SpellsNamesAsTheSchemaDoes) {
  const WqlQuery query = ParseWql("select count, ID from TOY", ToyRepository());
  EXPECT_EQ(query.className, "Toy");
  EXPECT_EQ(query.columns, (std::vector<std::string>{"Count", "Id"}));
  EXPECT_TRUE(query.Selects(NewToy("x", 1)));
}

TEST(Wql, SelectsClasses) {
  const auto selected = [](const std::string& where) {
    const WqlQuery query = ParseWql("SELECT * FROM Meta_Class" + where, ToyRepository());
    EXPECT_TRUE(query.ofClasses);
    std::string names;
    for (const ClassInfo* info : ToyRepository().served()) {
      if (query.Selects(CimObject(*info, CimObject::Kind::kClass))) names += info->name() + " ";
    }
    return names;
  };
  EXPECT_EQ(selected(""), "Base Toy Pair Only ");
  EXPECT_EQ(selected(" WHERE __this ISA 'Base'"), "Base Toy ");
  EXPECT_EQ(selected(" WHERE __SUPERCLASS IS NULL AND NOT __CLASS LIKE 'O%'"), "Base Pair ");
}

TEST(Wql, SaysWhereAQueryIsWrong) {
  const std::pair<std::string, const char*> rows[] = {
      {"", "character 1: expected SELECT"},
      {"SELECT FROM Toy", "character 13: expected FROM"},
      {"SELECT * FROM", "expected a class name"},
      {"SELECT * FROM Nothing", "character 15: there is no class 'Nothing'"},
      {"SELECT Size FROM Toy", "character 8: Toy has no property 'Size'; it has Id, On"},
      {"SELECT * FROM Toy WHERE", "expected a property name"},
      {"SELECT * FROM Toy WHERE Id", "expected =, <>"},
      {"SELECT * FROM Toy WHERE Id = alpha", "expected a text in quotes"},
      {"SELECT * FROM Toy WHERE Id LIKE 5", "expected a text in quotes"},
      {"SELECT * FROM Toy WHERE Id = 'x", "character 30: the text has no end"},
      {"SELECT * FROM Toy WHERE (Id = 'x'", "expected )"},
      {"SELECT * FROM Toy WHERE Count = 99999999999999999999", "too large"},
      {"SELECT * FROM Toy extra", "expected the end"},
      {"SELECT * FROM Toy; SELECT", "character 20: expected the end"},
      {"SELECT * FROM Toy WHERE 'x' LIKE Id", "expected =, <>, <, <=, > or >=, found LIKE"},
      {"SELECT * FROM Toy WHERE 5 = 6", "expected a property name, found 6"},
      {"SELECT * FROM Toy WHERE 'x' = On", "character 25: On is a boolean"},
      {"SELECT * FROM Toy WHERE NULL < Id", "character 25: NULL is compared by"},
      {"SELECT * FROM Toy WHERE __this = 'Toy'", "expected ISA"},
      {"SELECT * FROM Toy WHERE __this ISA 'Toi'", "no class 'Toi' (did you mean Toy?)"},
      {"SELECT Id FROM meta_class", "character 8: meta_class has __CLASS"},
      {"SELECT * FROM Toy WHERE " + std::string(100000, '('), "nested too deeply"},
  };
  for (const auto& [query, message] : rows) {
    try {
      ParseWql(query, ToyRepository());
      ADD_FAILURE() << query.substr(0, 80) << " was accepted";
    } catch (const QueryError& error) {
      EXPECT_NE(std::string(error.what()).find(message), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace host
