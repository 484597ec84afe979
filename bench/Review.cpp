// Speed of a review: the example batch with more samples, each a copy of one of its own.
#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdlib.h>
#include <string>
#include <variant>

#include "app/BatchReview.h"
#include "platform/FileLookup.h"
#include "platform/pdf/Typeface.h"

namespace qfr {
namespace {

namespace fs = std::filesystem;

class LargeBatch {
  public:
    explicit LargeBatch(std::size_t samples) {
        std::string name = (fs::temp_directory_path() / "qfr-bench-XXXXXX").string();
        dir_ = ::mkdtemp(name.data());
        const fs::path example = fs::path(QFR_SOURCE_DIR) / "example";
        fs::copy(example, dir_);
        const std::string file = TextOf(dir_ / "example.qff");
        saved = std::get<SavedBatch>(RestoreBatch(LineReader::Open(PathOf(file)).value(), file));
        std::ostringstream report;
        report << std::ifstream(example / "ZA101.PRN").rdbuf();
        SampleListType& list = *saved.Batch.SampleList;
        const SampleRecord like = list.at(2);
        while (list.size() < samples) {
            const std::string number = "zb" + std::to_string(list.size());
            std::ofstream(dir_ / (number + ".prn")) << report.str();
            list.push_back(like);
            list.back().FileName = TextOf(dir_ / (number + ".prn"));
        }
    }
    ~LargeBatch() { fs::remove_all(dir_); }
    LargeBatch(const LargeBatch&) = delete;
    LargeBatch& operator=(const LargeBatch&) = delete;

    SavedBatch saved;

  private:
    fs::path dir_;
};

void ReviewSamples(benchmark::State& state) {
    const LargeBatch batch(static_cast<std::size_t>(state.range(0)));
    const std::unique_ptr<Typeface> typeface = Typeface::Load();
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReviewAsPrinted(batch.saved, 0, *typeface, {}));
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(ReviewSamples)
    ->Arg(125)
    ->Arg(250)
    ->Arg(500)
    ->Arg(1000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qfr
