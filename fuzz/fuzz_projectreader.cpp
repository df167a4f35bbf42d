// Feeds the input to the project-file reader as a project file.

#include "fuzzsupport.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Velmora::Fuzz::readFromMemory(Velmora::Fuzz::harness().project, QStringLiteral("p"), data,
                                  size);
    return 0;
}
