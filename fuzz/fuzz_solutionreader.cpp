// Feeds the input to the solution-file reader, with project paths resolved in the sandbox.

#include "fuzzsupport.h"

#include "model/viewitem.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>

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
    // A file in the sandbox, so relative project paths resolve there.
    QFile file(QDir(harness.sandbox.path()).filePath(QStringLiteral("input.sln-qel")));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 0;
    file.write(reinterpret_cast<const char *>(data), qint64(size));
    file.close();
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const std::unique_ptr<Velmora::Framework::ViewItem> solution(
        harness.registrar.createItem(harness.solution->getId(), QString()));
    harness.solution->deserialize(solution.get(), &file);
    return 0;
}
