// Merging changed settings into a host's store.
#include <benchmark/benchmark.h>

#include <string>

#include "core/store/settings.h"

namespace {

std::string Key(int i) {
    return "SETTING_NUMBER_" + std::to_string(i);
}

void MergeIntoFullStore(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    CMdb changes;
    CMdb store;
    for (int i = 0; i < count; ++i) {
        SetSetting(&store, Key(i).c_str(), "before");
        SetSetting(&changes, Key(count - 1 - i).c_str(), "after!");
    }
    while (state.KeepRunning()) {
        MergeSettingRecords(&changes, &store);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MergeIntoFullStore)->Arg(110)->Arg(400)->Unit(benchmark::kMillisecond);

}  // namespace
