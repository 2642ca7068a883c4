#include "support/session_test.h"

#include "common/numbers.h"

using namespace quor;

SessionTest::SessionTest() {
    numbers::set_decimal_mark('.');
}

SessionTest::~SessionTest() {
    numbers::set_decimal_mark('.');
}
