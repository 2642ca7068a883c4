#include "datafiles/database.h"

#include <algorithm>
#include <cmath>

#include "datafiles/record_fields.h"
#include "harness.h"
#include "session/substance_session.h"
#include "session_value.h"

using namespace quor;

namespace {

bool is_finite(const datafiles::FieldValue& value) {
    if (const float* single = std::get_if<float>(&value)) return std::isfinite(*single);
    if (const double* wide = std::get_if<double>(&value)) return std::isfinite(*wide);
    return true;
}

void check_finite(const models::SubstanceRecord& record) {
    for (const datafiles::RecordField& field : datafiles::record_fields())
        for (std::size_t i = 0; i < std::max<std::size_t>(field.count, 1); ++i)
            FUZZ_CHECK(is_finite(datafiles::value_of(record, {&field, i})));
}

/// A private database over the older file has its own substance in front and keeps what was behind
/// the first one.
void check_private_form(const datafiles::SubstanceFileRecord& own,
                        const models::SubstanceRecord& substance, std::string_view older) {
    const std::string bytes =
        datafiles::private_database_bytes(own, substance, true, "15.11.2026", std::string(older));
    FUZZ_CHECK(bytes.size() == std::max(older.size(), 2 * datafiles::kRecordSize));
    const std::size_t behind = std::min(older.size(), 2 * datafiles::kRecordSize);
    FUZZ_CHECK(std::string_view(bytes).substr(2 * datafiles::kRecordSize) == older.substr(behind));
    const auto opened = datafiles::Database::open(fuzz::as_file(bytes, "private.Q05"));
    FUZZ_CHECK(static_cast<bool>(opened));
    FUZZ_CHECK(opened->size() == 1);
    const auto again = opened->read(0);
    FUZZ_CHECK(static_cast<bool>(again));
    check_finite(again->record);
    // The substance that is saved for a second time is the same, byte by byte.
    const std::string second = datafiles::private_database_bytes(*opened->record(0), again->record,
                                                                 true, "15.11.2026", bytes);
    FUZZ_CHECK(std::string_view(second).substr(datafiles::kRecordSize) ==
               std::string_view(bytes).substr(datafiles::kRecordSize));
}

/// A database (.Q05): its list, its substances in both languages, the private form of the first
/// ones, and the first one as the substance of a session.
bool read(std::string_view input) {
    constexpr std::size_t kMostRead = 4;
    const std::filesystem::path file = fuzz::as_file(input, "input.Q05");
    static fuzz::PropaneSession propane;
    static const session::SessionState start = propane.session.state();
    session::Session& session = propane.session;
    *session.change() = start;
    if (session::load_database(session, file.string()) != session::LoadOutcome::Loaded) {
        FUZZ_CHECK(fuzz::same(session.state(), start));
        return false;
    }
    const datafiles::Database database = session->database;
    FUZZ_CHECK(database.size() >= 1);
    FUZZ_CHECK((database.size() + 1) * datafiles::kRecordSize <= input.size());
    for (const datafiles::DatabaseEntry& entry : database.entries()) {
        FUZZ_CHECK(database.place_of_number(entry.number).has_value());
        database.place_of_name(entry.name);
    }
    for (std::size_t place = 0; place < std::min(database.size(), kMostRead); ++place) {
        const auto record = database.record(place);
        const auto read = database.read(place, 1.5F);
        FUZZ_CHECK(record && read);
        check_finite(read->record);
        check_private_form(*record, read->record, input);
    }
    FUZZ_CHECK(!database.record(database.size()));

    const auto other = datafiles::Database::open(file, false);
    FUZZ_CHECK(other && other->size() == database.size());

    session::take_substance(session, 1);
    check_finite(session->substance);
    return true;
}

const fuzz::Registered registered("database", read);

}  // namespace
