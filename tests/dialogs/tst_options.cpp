#include "testsupport.h"
#include "offscreenwindows.h"

#include "dialogs/optionpage.h"
#include "dialogs/optionpagegeneral.h"
#include "dialogs/optionsdialog.h"
#include "dialogs/quickstartwindow.h"

#include <QtCore/qpointer.h>
#include <QtCore/qsettings.h>
#include <QtCore/qtemporarydir.h>
#include <QtWidgets/qcheckbox.h>
#include <QtWidgets/qcombobox.h>
#include <QtWidgets/qdialogbuttonbox.h>
#include <QtWidgets/qpushbutton.h>
#include <QtWidgets/qtreewidget.h>

#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

namespace {

class TextPage : public OptionPage
{
public:
    explicit TextPage(const QString &title) : m_title(title) {}
    QString title() const override { return m_title; }
    void load(QSettings &settings) override { value = settings.value(m_title).toString(); }
    bool save(QSettings &settings) override
    {
        if (refuse)
            return false;
        settings.setValue(m_title, value);
        return true;
    }
    QString value;
    bool refuse = false;

private:
    QString m_title;
};

QStringList treeTexts(const OptionsDialog &dialog)
{
    QStringList texts;
    const auto *tree = dialog.findChild<QTreeWidget *>(u"OptionTree"_s);
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *top = tree->topLevelItem(i);
        for (int j = 0; j < top->childCount(); ++j)
            texts.append(top->text(0) + u'/' + top->child(j)->text(0));
    }
    return texts;
}

} // namespace

class tst_OptionsDialog : public QObject
{
    Q_OBJECT

    // Installed inside QtTest's own handler, so pinned and failing warnings still work.
    std::unique_ptr<Velmora::Tests::OffscreenWindowNotices> m_notices;

private slots:
    void initTestCase() { m_notices = std::make_unique<Velmora::Tests::OffscreenWindowNotices>(); }
    void cleanupTestCase() { m_notices.reset(); }
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        m_dir = std::make_unique<QTemporaryDir>();
        m_settings = std::make_unique<QSettings>(m_dir->filePath(u"options.ini"_s),
                                                 QSettings::IniFormat);
    }
    void cleanup()
    {
        m_settings.reset();
        m_dir.reset();
    }
    void pagesRegisteredAndWithdrawn();
    void generalPagePersistsAndCancelDiscards();
    void refusingPageKeepsDialogOpen();
    void unreadableValuesFallBack_data();
    void unreadableValuesFallBack();

private:
    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QSettings> m_settings;
};

void tst_OptionsDialog::pagesRegisteredAndWithdrawn()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    OptionsDialog dialog;
    auto *general = new TextPage(u"General"_s);
    auto *fonts = new TextPage(u"Fonts"_s);
    auto *keys = new TextPage(u"Keys"_s);
    QVERIFY(dialog.registerOptionPage(OptionTopItem(u"Environment"_s), general));
    QVERIFY(dialog.registerOptionPage(OptionTopItem(u"Editor"_s), fonts));
    QVERIFY(dialog.registerOptionPage(OptionTopItem(u"Environment"_s), keys));
    QCOMPARE(treeTexts(dialog), QStringList({u"Environment/General"_s, u"Environment/Keys"_s,
                                             u"Editor/Fonts"_s}));
    QCOMPARE(dialog.pages(), QList<OptionPage *>({general, keys, fonts}));
    QCOMPARE(dialog.currentPage(), general);

    QTest::ignoreMessage(QtWarningMsg, "OptionsDialog::registerOptionPage(): null page");
    QVERIFY(!dialog.registerOptionPage(OptionTopItem(u"Editor"_s), nullptr));
    QTest::ignoreMessage(QtWarningMsg,
                         "OptionsDialog::registerOptionPage(): page Keys already registered");
    QVERIFY(!dialog.registerOptionPage(OptionTopItem(u"Editor"_s), keys));
    TextPage orphan(u"Orphan"_s);
    QTest::ignoreMessage(QtWarningMsg,
                         "OptionsDialog::registerOptionPage(): top item without a title");
    QVERIFY(!dialog.registerOptionPage(OptionTopItem(), &orphan));

    // Withdrawing the last page of a top item removes the item; the page is the caller's.
    QVERIFY(dialog.unregisterOptionPage(fonts));
    std::unique_ptr<TextPage> returned(fonts);
    QCOMPARE(fonts->parent(), nullptr);
    QCOMPARE(treeTexts(dialog), QStringList({u"Environment/General"_s, u"Environment/Keys"_s}));
    QTest::ignoreMessage(QtWarningMsg, "OptionsDialog::unregisterOptionPage(): page not registered");
    QVERIFY(!dialog.unregisterOptionPage(fonts));

    // A provider deleting its own page must not leave a dangling entry.
    delete keys;
    QCOMPARE(dialog.pages(), QList<OptionPage *>({general}));

    QPointer<OptionPage> last(general);
    dialog.unregisterAll();
    QVERIFY(last.isNull());
    QVERIFY(dialog.pages().isEmpty());
    QVERIFY(treeTexts(dialog).isEmpty());
}

void tst_OptionsDialog::generalPagePersistsAndCancelDiscards()
{
    OptionsDialog dialog;
    dialog.setSettings(m_settings.get());
    auto *page = new OptionPageGeneral;
    QVERIFY(dialog.registerOptionPage(OptionPageGeneral::topItem(), page));
    auto *language = page->findChild<QComboBox *>(u"Language"_s);
    auto *quickStart = page->findChild<QCheckBox *>(u"ShowQuickStart"_s);
    auto *reopen = page->findChild<QCheckBox *>(u"ReopenLastSolution"_s);
    auto *apply = dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Apply);

    // A hidden dialog leaves its pages unshown (unpolished, not laid out) until it is shown.
    QVERIFY(!page->isVisibleTo(&dialog));
    dialog.show();
    QVERIFY(page->isVisible());
    QVERIFY(!apply->isEnabled());

    language->setCurrentIndex(language->findData(u"zh_CN"_s));
    quickStart->setChecked(false);
    reopen->setChecked(true);
    QVERIFY(apply->isEnabled());
    apply->click();
    QVERIFY(!apply->isEnabled());
    QVERIFY(dialog.isVisible());

    // Read back through a separate store, as the next start would.
    QSettings reread(m_settings->fileName(), QSettings::IniFormat);
    QCOMPARE(reread.value(OptionPageGeneral::languageSettingPath()).toString(), u"zh_CN"_s);
    QCOMPARE(reread.value(QuickStartWindow::onStartSettingPath()).toBool(), false);
    QCOMPARE(reread.value(OptionPageGeneral::reopenLastSolutionSettingPath()).toBool(), true);

    // Cancel throws edits away: showing again reloads what was saved.
    reopen->setChecked(false);
    dialog.reject();
    dialog.show();
    QVERIFY(reopen->isChecked());
    QCOMPARE(language->currentData().toString(), u"zh_CN"_s);
}

void tst_OptionsDialog::refusingPageKeepsDialogOpen()
{
    OptionsDialog dialog;
    dialog.setSettings(m_settings.get());
    auto *first = new TextPage(u"First"_s);
    auto *second = new TextPage(u"Second"_s);
    dialog.registerOptionPage(OptionTopItem(u"Top"_s), first);
    dialog.registerOptionPage(OptionTopItem(u"Top"_s), second);
    dialog.show();
    first->value = u"kept"_s;
    second->refuse = true;
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.currentPage(), second);
    QVERIFY(second->isVisible() && !first->isVisible());

    second->refuse = false;
    dialog.accept();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(m_settings->value(u"First"_s).toString(), u"kept"_s);
}

void tst_OptionsDialog::unreadableValuesFallBack_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("warning");
    QTest::addColumn<QString>("expected"); // "language|quickstart|reopen" as shown

    QTest::newRow("unknown language")
        << u"IDE/Language"_s << u"tlh"_s
        << u"OptionPageGeneral::load(): unknown language \"tlh\" for IDE/Language, using English"_s
        << u"en|1|0"_s;
    QTest::newRow("quick start neither true nor false")
        << u"IDE/ShowQuickStartOnStart"_s << u"maybe"_s
        << u"OptionPageGeneral::load(): unreadable value \"maybe\" for IDE/ShowQuickStartOnStart, using true"_s
        << u"en|1|0"_s;
    QTest::newRow("reopen neither true nor false")
        << u"IDE/ReopenLastSolution"_s << u"yes please"_s
        << u"OptionPageGeneral::load(): unreadable value \"yes please\" for IDE/ReopenLastSolution, using false"_s
        << u"en|1|0"_s;
    QTest::newRow("numeric Booleans are read")
        << u"IDE/ReopenLastSolution"_s << u"1"_s << QString() << u"en|1|1"_s;
}

void tst_OptionsDialog::unreadableValuesFallBack()
{
    VELMORA_SKIP_IF_MESSAGES_RESHAPED();
    QFETCH(QString, key);
    QFETCH(QString, stored);
    QFETCH(QString, warning);
    QFETCH(QString, expected);
    m_settings->setValue(key, stored);

    OptionPageGeneral page;
    if (!warning.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, warning.toUtf8().constData());
    page.load(*m_settings);
    const QString shown = page.findChild<QComboBox *>(u"Language"_s)->currentData().toString()
        + u'|' + QString::number(page.findChild<QCheckBox *>(u"ShowQuickStart"_s)->isChecked())
        + u'|' + QString::number(page.findChild<QCheckBox *>(u"ReopenLastSolution"_s)->isChecked());
    QCOMPARE(shown, expected);
}

VELMORA_TEST(tst_OptionsDialog);
#include "tst_options.moc"
