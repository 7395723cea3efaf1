#include <benchmark/benchmark.h>

#include "bench/settings_file.h"

#if HAS_INIH
#include <ini.h>
#endif
#if HAS_SIMPLEINI
#define SI_NO_CONVERSION  // its file for that is not in the package
#include <SimpleIni.h>
#endif
#if HAS_GLIB
#include <glib.h>
#endif
#if HAS_BOOST
#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>
#endif

// Other readers of such files, those that are installed, on the file that the store is measured
// with. `open` returns whether it could read the file.

namespace {

template <typename Open>
void OpenWith(benchmark::State& state, Open open) {
    const bench::SettingsFile file(bench::Plain);
    for (auto _ : state) {
        if (!open(file.Path().c_str())) {
            state.SkipWithError("the file could not be opened");
        }
    }
    state.SetBytesProcessed(state.iterations() * file.Size());
}

#if HAS_INIH
// Keeps nothing of what it reads.
bool OpenWithInih(const char* path) {
    const auto take = [](void*, const char*, const char*, const char*) { return 1; };
    return ini_parse(path, take, nullptr) == 0;
}
BENCHMARK_CAPTURE(OpenWith, Inih, OpenWithInih)->Unit(benchmark::kMillisecond);
#endif

#if HAS_SIMPLEINI
bool OpenWithSimpleIni(const char* path) {
    return CSimpleIniA().LoadFile(path) == SI_OK;
}
BENCHMARK_CAPTURE(OpenWith, SimpleIni, OpenWithSimpleIni)->Unit(benchmark::kMillisecond);
#endif

#if HAS_GLIB
bool OpenWithGlib(const char* path) {
    GKeyFile* const keys = g_key_file_new();
    const bool isRead = g_key_file_load_from_file(keys, path, G_KEY_FILE_KEEP_COMMENTS, nullptr);
    g_key_file_free(keys);
    return isRead;
}
BENCHMARK_CAPTURE(OpenWith, GlibKeyFile, OpenWithGlib)->Unit(benchmark::kMillisecond);
#endif

#if HAS_BOOST
bool OpenWithBoost(const char* path) {
    boost::property_tree::ptree tree;
    boost::property_tree::read_ini(path, tree);
    return !tree.empty();
}
BENCHMARK_CAPTURE(OpenWith, BoostPropertyTree, OpenWithBoost)->Unit(benchmark::kMillisecond);
#endif

}  // namespace
