#include <gtest/gtest.h>

#include "common/faults.h"
#include "common/numbers.h"
#include "support/comma_locale.h"

using namespace quor;

namespace {

using numbers::format;

struct decimal_comma {
    decimal_comma() { numbers::set_decimal_mark(','); }
    ~decimal_comma() { numbers::set_decimal_mark('.'); }
};

TEST(Numbers, MasksShowTheDigitsTheyAskFor) {
    EXPECT_EQ(format(300.0, "###0.000 K"), "300.000 K");
    EXPECT_EQ(format(0.5, "###0.000"), "0.500");
    EXPECT_EQ(format(0.5, "####.##"), ".5");
    EXPECT_EQ(format(12.0, "####.##"), "12.");
    EXPECT_EQ(format(5000.0, "####0.000 kPa"), "5000.000 kPa");
    EXPECT_EQ(format(0.25, "0.0#######"), "0.25");
    EXPECT_EQ(format(1.0, "0.0#######"), "1.0");
    EXPECT_EQ(format(44.0, "#0.0000# m^3/kmol"), "44.0000 m^3/kmol");
    EXPECT_EQ(format(3.0, "0"), "3");
}

TEST(Numbers, MasksRoundHalfAwayFromZeroAsTheNumberIsRead) {
    EXPECT_EQ(format(2.675, "0.00"), "2.68");
    EXPECT_EQ(format(-2.5, "0"), "-3");
    EXPECT_EQ(format(0.125, "0.00"), "0.13");
    EXPECT_EQ(format(999.9996, "###0.000"), "1000.000");
    EXPECT_EQ(format(-0.0001, "0.000"), "0.000");
}

TEST(Numbers, ExponentMasksCarryIntoTheExponent) {
    EXPECT_EQ(format(0.00012345, "0.0000E+00"), "1.2345E-04");
    EXPECT_EQ(format(9.99996, "0.0000E+00"), "1.0000E+01");
    EXPECT_EQ(format(0.0, "0.0000E+00"), "0.0000E+00");
    EXPECT_EQ(format(273.15, ".0000000E+00"), ".2731500E+03");
    EXPECT_EQ(format(1e-37, "0.00000000E+00"), "1.00000000E-37");
    EXPECT_EQ(format(-0.5, " 0.0000E+00;-0.0000E+00"), "-5.0000E-01");
    EXPECT_EQ(format(0.5, " 0.0000E+00;-0.0000E+00"), " 5.0000E-01");
}

TEST(Numbers, APercentSignMultipliesBy100) {
    EXPECT_EQ(format(0.12345, "0.0### %"), "12.345 %");
}

TEST(Numbers, TheLocalesDecimalMarkIsHonoured) {
    const decimal_comma comma;
    EXPECT_EQ(format(1.5, "0.00"), "1,50");
    EXPECT_EQ(numbers::general(1.5F), "1,5");
    EXPECT_EQ(numbers::format_point(1.5, "0.00"), "1.50");
    EXPECT_EQ(numbers::comma_to_point("1,5"), "1.5");
}

TEST(Numbers, GeneralFormatsCarrySevenAndFifteenDigits) {
    EXPECT_EQ(numbers::general(0.1F), "0.1");
    EXPECT_EQ(numbers::general(1.0F / 3.0F), "0.3333333");
    EXPECT_EQ(numbers::general(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(numbers::general(1e20), "1E+20");
    EXPECT_EQ(numbers::general(0.0), "0");
}

TEST(Numbers, ValReadsTheLeadingNumberOnly) {
    EXPECT_DOUBLE_EQ(numbers::val("  12.5 K"), 12.5);
    EXPECT_DOUBLE_EQ(numbers::val("1E3"), 1000.0);
    EXPECT_DOUBLE_EQ(numbers::val("-2.5e-2x"), -0.025);
    EXPECT_DOUBLE_EQ(numbers::val("abc"), 0.0);
    EXPECT_DOUBLE_EQ(numbers::val(""), 0.0);
    EXPECT_DOUBLE_EQ(numbers::val("12,5"), 12.0);
    EXPECT_DOUBLE_EQ(numbers::val_input("12,5"), 12.5);
    EXPECT_DOUBLE_EQ(numbers::val("1E-999"), 0.0);
}

TEST(Numbers, ATextThatIsOnlyPartlyANumberIsNone) {
    for (const char* text : {"", " ", "-", ".", "E5", "1E", "1E-", "12 K", "3 000", "1 E5", "- 1",
                             "1.2.3", "1,5", "inf", "nan", "0x10", "1E999", "--1", "1'000"})
        EXPECT_EQ(numbers::number(text), std::nullopt) << text;
    for (const char* text : {"1,234.5", "1.000,5", "1,000,5", "3 000", "12,5 K", "1E999"})
        EXPECT_EQ(numbers::typed_number(text), std::nullopt) << text;
    EXPECT_EQ(numbers::number(" -12.5E1\t"), -125.0);
    EXPECT_EQ(numbers::number(".5"), 0.5);
    EXPECT_EQ(numbers::number("5."), 5.0);
    EXPECT_EQ(numbers::number("+1D-2"), 0.01);
    EXPECT_EQ(numbers::number("1E-999"), 0.0);
    EXPECT_EQ(numbers::typed_number("12,5"), 12.5);
    EXPECT_EQ(numbers::typed_number("12.5"), 12.5);
}

TEST(Numbers, ValSkipsBlanksWithinANumber) {
    EXPECT_EQ(numbers::val("- 1 2 . 5 E 2"), -1250.0);
    EXPECT_EQ(numbers::val("1E5 3"), 100000.0);
    EXPECT_EQ(numbers::val("2 E"), 2.0);
    EXPECT_EQ(numbers::val("-1E999"), -std::numeric_limits<double>::max());
}

TEST(Numbers, AProcessWithADecimalCommaWritesAndReadsTheSame) {
    const CommaLocale locale;
    EXPECT_EQ(numbers::general(298.15), "298.15");
    EXPECT_EQ(numbers::general(101.325F), "101.325");
    EXPECT_EQ(numbers::general_point(1e-20), "1E-20");
    EXPECT_EQ(numbers::general_point(1.5e20), "1.5E+20");
    EXPECT_EQ(format(101.325, "0.00 kPa"), "101.33 kPa");
    EXPECT_EQ(format(0.00012345, "0.0000E+00"), "1.2345E-04");
    EXPECT_EQ(numbers::val("298.15"), 298.15);
    EXPECT_EQ(numbers::number("298.15"), 298.15);
    const decimal_comma comma;
    EXPECT_EQ(numbers::general(298.15), "298,15");
    EXPECT_EQ(numbers::general_point(298.15), "298.15");
}

TEST(Numbers, WholeNumbersAreRoundedHalfToEven) {
    EXPECT_EQ(numbers::to_int16(2.5), 2);
    EXPECT_EQ(numbers::to_int16(3.5), 4);
    EXPECT_EQ(numbers::to_int32(-1.5), -2);
    EXPECT_THROW(numbers::to_int16(40000.0), faults::Fault);
    EXPECT_THROW(numbers::to_single(1e39), faults::Fault);
    EXPECT_DOUBLE_EQ(numbers::round_down(-0.5), -1.0);
    EXPECT_DOUBLE_EQ(numbers::round4(1.00005), 1.0001);
}

}  // namespace
