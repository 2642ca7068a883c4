#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "datafiles/database.h"
#include "datafiles/database_table.h"

using namespace quor;

namespace {

/// A database of that many substances in the folder of temporary files.
std::string database_of(std::int64_t count) {
    std::vector<datafiles::SubstanceFileRecord> records(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < records.size(); ++i) {
        datafiles::set_field_text(records[i].name_english, "Äther " + std::to_string(i));
        records[i].values[6] = 400.0F;
        records[i].values[7] = 4000.0F;
    }
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "quor-bench.Q05";
    const std::string bytes = datafiles::database_bytes(records);
    std::ofstream(path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path.string();
}

void BM_OpenDatabaseFile(benchmark::State& state) {
    const std::string path = database_of(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(datafiles::Database::open(path));
    std::filesystem::remove(path);
}
BENCHMARK(BM_OpenDatabaseFile)->Arg(180)->Arg(5000)->Unit(benchmark::kMillisecond);

void BM_ReadSubstance(benchmark::State& state) {
    const std::string path = database_of(5000);
    const Result<datafiles::Database> database = datafiles::Database::open(path);
    for (auto _ : state) benchmark::DoNotOptimize(database->read(4000));
    std::filesystem::remove(path);
}
BENCHMARK(BM_ReadSubstance)->Unit(benchmark::kMicrosecond);

}  // namespace
