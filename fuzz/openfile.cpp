// Reads one file from disk with the project or solution reader of the fuzz harness, streaming
// from the file as the types do, so that scripts/hostile.sh can measure time and memory on
// inputs too large for the corpora: "<exe> project|solution FILE". Exits 0 when it loaded.

#include "fuzzsupport.h"

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s project|solution FILE\n", argv[0]);
        return 2;
    }
    Velmora::Fuzz::Harness &harness = Velmora::Fuzz::harness();
    Velmora::Framework::ItemTypeSerializable *type = nullptr;
    if (qstrcmp(argv[1], "project") == 0)
        type = harness.project;
    else if (qstrcmp(argv[1], "solution") == 0)
        type = harness.solution;
    QFile file(QString::fromLocal8Bit(argv[2]));
    if (!type || !file.open(QIODevice::ReadOnly))
        return 2;
    const std::unique_ptr<Velmora::Framework::ViewItem> item(
        harness.registrar.createItem(type->getId(), QStringLiteral("orig")));
    const bool loaded = type->deserialize(item.get(), &file);
    std::printf("%s: %s, %d children\n", argv[2], loaded ? "loaded" : "refused",
                item->getChildItemCount());
    return loaded ? 0 : 1;
}
