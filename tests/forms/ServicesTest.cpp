#include <gtest/gtest.h>

#include "forms/Devices.h"
#include "forms/Services.h"
#include "forms/headless/HeadlessLocale.h"

namespace forms {
namespace {

TEST(ServicesTest, NumbersAreReadInTheUsersFormat) {
    headless::HeadlessLocale locale;
    Machine() = Devices{};
    Machine().locale = &locale;
    EXPECT_EQ(ToInteger16("1,000"), 1000);
    locale.numbers = {.decimalSign = ",", .thousandsSign = ".", .currencySymbol = "\u20ac"};
    EXPECT_EQ(ToInteger16("3,5"), 4);
    EXPECT_FALSE(IsNumeric("$5"));
    Machine() = Devices{};
}

}  // namespace
}  // namespace forms
