#include "models/model_tables.h"

#include <algorithm>

#include "models/model_codes.h"
#include "support/codes.h"

using namespace quor;

namespace {

using models::Eos;
using models::VapourPressureEquation;

TEST(ModelTables, NamesAreFixedWidthAndCodesInvert) {
    EXPECT_EQ(models::eos_name(Eos::pengRobinson), "CEOS Peng / Robinson               ");
    for (const models::EquationOfState* row : models::equations())
        EXPECT_EQ(row->name.size(), 35U) << row->name;
    EXPECT_EQ(models::eos_name(Eos::none), "");
    EXPECT_EQ(models::vp_of_code("WAG"), VapourPressureEquation::wagner);
    EXPECT_EQ(models::vp_of_code("xxx"), VapourPressureEquation::none);
    EXPECT_EQ(models::vp_code(VapourPressureEquation::thompson), "THO");
    EXPECT_EQ(models::function_label(14), "     ln (phi*)");
    EXPECT_TRUE(models::is_v_only(Eos::idealGas));
    EXPECT_FALSE(models::is_v_only(Eos::pengRobinson));
    EXPECT_FALSE(models::is_v_only(Eos::none));
}

TEST(ModelTables, EveryEquationHasACodeOfItsOwnThatInverts) {
    std::vector<std::int16_t> codes;
    for (const models::EquationOfState* row : models::equations()) {
        const std::int16_t code = models::code_of(row->eos);
        EXPECT_EQ(models::eos_of_code(code), row->eos) << row->name;
        EXPECT_EQ(std::count(codes.begin(), codes.end(), code), 0) << row->name;
        codes.push_back(code);
    }
    EXPECT_EQ(codes.size(), 15U);
    for (const int unknown : {1, 9, 17, -2}) EXPECT_FALSE(models::eos_of_code(unknown)) << unknown;
    EXPECT_FALSE(models::vapour_pressure_of_code(9));
    EXPECT_FALSE(models::vapour_pressure_of_code(-1));
}

}  // namespace
