#include "support/session_test.h"

#include "common/numbers.h"
#include "session/module2.h"

using namespace quor;

SessionTest::SessionTest() {
    numbers::set_decimal_mark('.');
    legacy::the_places = Places(folder(), {}, "15.11.2026");
    session::reset_everything();
}

SessionTest::~SessionTest() {
    numbers::set_decimal_mark('.');
    legacy::the_places = Places();
}
