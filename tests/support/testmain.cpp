#include "testsupport.h"

#ifdef VELMORA_TEST_GUI
#include <QtWidgets/qapplication.h>
using TestApplication = QApplication;
#else
#include <QtCore/qcoreapplication.h>
using TestApplication = QCoreApplication;
#endif

#include <memory>
#include <utility>
#include <vector>

namespace Velmora::Tests {

namespace {
std::vector<std::pair<QByteArray, TestFactory>> &registry()
{
    static std::vector<std::pair<QByteArray, TestFactory>> tests;
    return tests;
}
} // namespace

int registerTest(const char *name, TestFactory factory)
{
    registry().emplace_back(name, std::move(factory));
    return int(registry().size());
}

} // namespace Velmora::Tests

// Runs every registered test class. "<exe> tst_Class [qtest options]" runs one class only,
// so that a single test function can be picked out.
int main(int argc, char **argv)
{
    TestApplication app(argc, argv);
    QByteArray only;
    if (argc > 1 && qstrncmp(argv[1], "tst_", 4) == 0) {
        only = argv[1];
        argv[1] = argv[0];
        ++argv;
        --argc;
    }
    int failures = 0;
    bool ran = false;
    for (const auto &[name, factory] : Velmora::Tests::registry()) {
        if (!only.isEmpty() && name != only)
            continue;
        ran = true;
        std::unique_ptr<QObject> test(factory());
        failures += QTest::qExec(test.get(), argc, argv);
    }
    if (!only.isEmpty() && !ran) {
        qWarning("No test class named %s", only.constData());
        return 1;
    }
    return failures;
}
