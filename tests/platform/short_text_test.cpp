#include "platform/short_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using platform::ShortText;

TEST(ShortText, PutsPartsTogether) {
  EXPECT_EQ(std::string_view(ShortText<40>()
                                 .Add("a")
                                 .Decimal(std::numeric_limits<std::int32_t>::min())
                                 .Add(" ")
                                 .Decimal(0xFFFFFFFFu)
                                 .Hex(0xAB, 4)
                                 .Hex(0x12345678, 2)
                                 .Ascii(u"z")),
            "a-2147483648 429496729500AB78z");
  EXPECT_STREQ(ShortText<3>().Add("abcd").c_str(), "abc");
  EXPECT_STREQ(ShortText<3>().Add("a").Decimal(1234).c_str(), "a");  // never a part of a number
}

TEST(ShortText, ShowsTenths) {
  const std::pair<double, const char*> kRows[] = {
      {54, "54.0"},
      {0.05, "0.1"},
      {0.15, "0.1"},
      {0.25, "0.2"},
      {99.95, "100.0"},
      {-0.04, "-0.0"},
      {1e17, "100000000000000000.0"},
      {std::numeric_limits<double>::infinity(), "inf"},
  };
  for (const auto& [number, text] : kRows) {
    EXPECT_STREQ(ShortText<330>().Tenths(number).c_str(), text);
  }
  const auto largest = ShortText<330>().Tenths(std::numeric_limits<double>::max());
  EXPECT_EQ(std::string_view(largest).size(), 311u);
}

}  // namespace
