// One typical event out of its archive and into it, ours and on libplist; from the bytes to the event that
// a store holds, and back.
#include <cstdlib>

#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "support/Bench.h"
#include "support/PlistEvent.h"
#include "support/TypicalEvent.h"

namespace {

using namespace dayward;

Data encoded(const HHEvent& event) { return KeyedArchiver::archivedDataWithRootObject(event.getStoreInfo()); }

std::shared_ptr<HHEvent> decoded(const Data& archive) {
    const auto root = KeyedUnarchiver::unarchiveObjectWithData(archive);
    auto event = std::make_shared<HHEvent>("5D3C5C54-9F0E-4B9F-9F43-000000000000");
    event->fillStoreInfo(std::move(*root->as<HHGeneralEventDocumentData>()));
    return event;
}

const Data& archive() {
    bench::plainEnvironment();
    static const Data data = encoded(bench::typicalEvent());
    return data;
}

/// A measurement means something only where both sides read and write the same.
void checkSides(benchmark::State& state) {
    const auto [bytes, size] = bench::plistArchive(bench::plistEventFrom(archive()));
    const Data theirs(bytes, bytes + size);
    std::free(bytes);
    const auto byUs = decoded(theirs);
    if (archive().size() < 1600 || archive().size() > 1800 || encoded(*byUs) != archive())
        state.SkipWithError("the sides differ");
}

}  // namespace

DAYWARD_BENCH(decode_event, ours) {
    checkSides(state);
    for (auto _ : state) benchmark::DoNotOptimize(decoded(archive()));
}

DAYWARD_BENCH(decode_event, libplist) {
    for (auto _ : state) benchmark::DoNotOptimize(bench::plistEventFrom(archive()));
}

DAYWARD_BENCH(encode_event, ours) {
    const auto event = decoded(archive());
    for (auto _ : state) benchmark::DoNotOptimize(encoded(*event));
}

DAYWARD_BENCH(encode_event, libplist) {
    const auto event = bench::plistEventFrom(archive());
    for (auto _ : state) std::free(bench::plistArchive(event).first);
}
