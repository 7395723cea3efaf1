#include <benchmark/benchmark.h>

#include "bench/settings_file.h"
#include "settings/settings_store.h"
#include "text/utf.h"

namespace {

using bench::SettingsFile;

void OpenSettings(benchmark::State& state, bench::Encoding encoding) {
    const SettingsFile file(encoding);
    for (auto _ : state) {
        if (!rotavel::SettingsOpen(rotavel::ToUtf16(file.Path()), rotavel::GroupSpacing)) {
            state.SkipWithError("the file could not be opened");
        }
        state.PauseTiming();
        rotavel::SettingsClose();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * file.Size());
}
BENCHMARK_CAPTURE(OpenSettings, PlainFile, bench::Plain)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenSettings, FileWithMark, bench::Marked)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenSettings, AccentedFile, bench::Accented)->Unit(benchmark::kMillisecond);

void RewriteSettings(benchmark::State& state) {
    const SettingsFile file(bench::Plain);
    rotavel::SettingsOpen(rotavel::ToUtf16(file.Path()), rotavel::GroupSpacing);
    rotavel::SettingsSelectGroup(u"Settings");
    for (auto _ : state) {
        rotavel::SettingsWriteInteger(u"MaxRPM", state.iterations() % 2 == 0 ? 8750 : 9000);
        if (!rotavel::SettingsFlush()) {
            state.SkipWithError("the file could not be rewritten");
        }
    }
    rotavel::SettingsClose();
    state.SetBytesProcessed(state.iterations() * file.Size());
}
BENCHMARK(RewriteSettings)->Unit(benchmark::kMillisecond);

}  // namespace
