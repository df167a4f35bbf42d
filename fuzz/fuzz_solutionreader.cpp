// Feeds the input to the solution-file reader from memory. A solution read from anything but a
// file resolves its project paths against the current folder, which the harness points at the
// sandbox.

#include "fuzzsupport.h"

#include "model/viewitem.h"

#include <QtCore/qbuffer.h>

#include <cstddef>
#include <cstdint>
#include <memory>

// Builds the application and the types before the first input, so that the fuzzer's leak
// check does not take them for leaks of that input.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    Velmora::Fuzz::harness();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Velmora::Fuzz::Harness &harness = Velmora::Fuzz::harness();
    QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const std::unique_ptr<Velmora::Framework::ViewItem> solution(
        harness.registrar.createItem(harness.solution->getId(), QString()));
    harness.solution->deserialize(solution.get(), &buffer);
    return 0;
}
