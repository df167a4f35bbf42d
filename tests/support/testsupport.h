#pragma once

#include <QtCore/qbytearray.h>
#include <QtCore/qobject.h>
#include <QtCore/qregularexpression.h>
#include <QtCore/qstringlist.h>
#include <QtTest/qtest.h>

#include <functional>

namespace Velmora::Tests {

using TestFactory = std::function<QObject *()>;

// Adds a test class to the area's executable; see VELMORA_TEST below.
int registerTest(const char *name, TestFactory factory);

// Call from every test class's init(): a warning that no QTest::ignoreMessage pinned fails
// the test function.
inline void failOnUnexpectedWarnings()
{
    // Qt 6.4 has no argument-less overload; the pattern works on both.
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

// Keeps the text of every message, debug ones included (failOnWarning sees warnings only), for
// the recorder's life. Make it in init() or a test function, after QtTest has installed its
// own handler, which still sees every message.
class MessageRecorder
{
public:
    MessageRecorder()
    {
        texts.clear();
        s_previous = qInstallMessageHandler(&handle);
    }
    ~MessageRecorder() { qInstallMessageHandler(s_previous); }

    static inline QStringList texts;

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        texts << text;
        s_previous(type, context, text);
    }
    static inline QtMessageHandler s_previous = nullptr;
};

} // namespace Velmora::Tests

// Pinned texts only match when nothing reshapes or filters Qt's messages.
#define VELMORA_SKIP_IF_MESSAGES_RESHAPED()                                                   \
    do {                                                                                      \
        if (qEnvironmentVariableIsSet("QT_LOGGING_RULES")                                     \
            || qEnvironmentVariableIsSet("QT_MESSAGE_PATTERN"))                               \
            QSKIP("QT_LOGGING_RULES or QT_MESSAGE_PATTERN reshape the pinned messages");      \
    } while (false)

#define VELMORA_TEST(TestClass)                                                               \
    static const int velmoraRegistered##TestClass =                                           \
        Velmora::Tests::registerTest(#TestClass, [] { return new TestClass; })
