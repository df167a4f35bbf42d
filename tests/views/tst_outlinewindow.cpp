#include "testsupport.h"

#include "core/icontentoutline.h"
#include "views/outlinewindow.h"

#include <QtGui/qstandarditemmodel.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qstackedwidget.h>
#include <QtWidgets/qtreeview.h>

using namespace Velmora::Framework;

namespace {

class OutlinedEditor : public QWidget, public IContentOutline
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::IContentOutline Velmora::Framework::IBase)

public:
    OutlinedEditor()
    {
        auto *section = new QStandardItem(QStringLiteral("Section"));
        section->appendRow(new QStandardItem(QStringLiteral("alpha")));
        section->appendRow(new QStandardItem(QStringLiteral("beta")));
        outline.appendRow(section);
    }
    bool queryInterface(const char *iid, IBase **out) override
    {
        return queryByMetaCast(this, iid, out);
    }
    QAbstractItemModel *outlineModel() override { return &outline; }
    void goToOutline(const QModelIndex &index) override { visited.append(index.data().toString()); }

    QStandardItemModel outline;
    QStringList visited;
};

QString shownText(const OutlineWindow &window)
{
    const QWidget *page = window.findChild<QStackedWidget *>()->currentWidget();
    const auto *label = qobject_cast<const QLabel *>(page);
    return label ? label->text() : QStringLiteral("<tree>");
}

} // namespace

class tst_OutlineWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }
    void showsOnlyWhatTheEditorOffers();
};

void tst_OutlineWindow::showsOnlyWhatTheEditorOffers()
{
    OutlineWindow window;
    QCOMPARE(shownText(window), QStringLiteral("No outline"));
    QWidget plain;
    window.setEditor(&plain);
    QVERIFY(!window.hasOutline());
    QCOMPARE(shownText(window), QStringLiteral("No outline"));

    auto *editor = new OutlinedEditor;
    window.setEditor(editor);
    QVERIFY(window.hasOutline());
    QCOMPARE(shownText(window), QStringLiteral("<tree>"));

    // Rows pass through the filter; the editor hears of its own rows.
    window.setFilterText(QStringLiteral("BET"));
    QTreeView *tree = window.treeView();
    const QModelIndex section = tree->model()->index(0, 0);
    QCOMPARE(tree->model()->rowCount(section), 1);
    emit tree->activated(tree->model()->index(0, 0, section));
    QCOMPARE(editor->visited, QStringList({QStringLiteral("beta")}));

    delete editor;
    QVERIFY(!window.hasOutline() && !window.editor());
    QCOMPARE(shownText(window), QStringLiteral("No outline"));
}

VELMORA_TEST(tst_OutlineWindow);
#include "tst_outlinewindow.moc"
