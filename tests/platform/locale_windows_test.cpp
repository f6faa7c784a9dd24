// A host may set its locale: numbers still have a decimal point.

#include <gtest/gtest.h>

#include <clocale>

#include "platform/short_text.h"

TEST(ShortText, FollowsNoLocale) {
  ASSERT_NE(std::setlocale(LC_ALL, "German"), nullptr);
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_STREQ(platform::ShortText<16>().Tenths(54).c_str(), "54.0");
  std::setlocale(LC_ALL, "C");
}
