#include <gtest/gtest.h>

#include "platform/platform.h"

namespace {

TEST(Compare, FindsEqualNamesInAnyLetterCase) {
  struct Row {
    const OLECHAR* left;
    int leftLength;
    const OLECHAR* right;
    int rightLength;
    bool equal;
    bool equalIgnoringCase;
  };
  const Row rows[] = {
      {OLESTR("WiFi_AdapterTxRxStats"), -1, OLESTR("wifi_ADAPTERtxrxSTATS"), -1, false, true},
      {OLESTR("abc"), -1, OLESTR("abc"), -1, true, true},
      {OLESTR("abc"), -1, OLESTR("abcd"), -1, false, false},
      {OLESTR("abcd"), 3, OLESTR("abcx"), 3, true, true},
      {OLESTR("abc"), -1, OLESTR("ABCx"), 3, false, true},
      {OLESTR(""), -1, OLESTR(""), -1, true, true},
      {OLESTR(""), -1, OLESTR("a"), -1, false, false},
      {OLESTR("\u00E9\u00FF\u0161\u0153\u017E"), -1, OLESTR("\u00C9\u0178\u0160\u0152\u017D"), -1,
       false, true},
      {OLESTR("\u00F7"), -1, OLESTR("\u00D7"), -1, false, false},
      {OLESTR("a"), -1, OLESTR("\u00E1"), -1, false, false},
      {OLESTR("a_b"), -1, OLESTR("ab"), -1, false, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    for (const LCID locale : {LCID{LOCALE_USER_DEFAULT}, LCID{LOCALE_SYSTEM_DEFAULT}}) {
      const auto equal = [&](DWORD flags) {
        return CompareStringW(locale, flags, row.left, row.leftLength, row.right,
                              row.rightLength) == CSTR_EQUAL;
      };
      EXPECT_EQ(row.equal, equal(0));
      EXPECT_EQ(row.equalIgnoringCase, equal(NORM_IGNORECASE));
    }
  }
}

TEST(Compare, OrdersAndRefusesMissingTexts) {
  EXPECT_EQ(CSTR_LESS_THAN,
            CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, OLESTR("a"), -1, OLESTR("B"), -1));
  EXPECT_EQ(CSTR_GREATER_THAN, CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, OLESTR("ab"),
                                              -1, OLESTR("A"), -1));
  SetLastError(0);
  EXPECT_EQ(0, CompareStringW(LOCALE_USER_DEFAULT, 0, nullptr, -1, OLESTR("a"), -1));
  EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, GetLastError());
}

}  // namespace
