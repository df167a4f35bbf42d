#include "testsupport.h"

#include "shell/dynamicmenu.h"

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

class tst_DynamicMenu : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }
    void groups();
};

// The menu's entries, "-" for a separator.
static QStringList entries(const QMenu &menu)
{
    QStringList found;
    for (const QAction *action : menu.actions())
        found.append(action->isSeparator() ? u"-"_s : action->text());
    return found;
}

void tst_DynamicMenu::groups()
{
    DynamicMenu menu(u"Menu"_s, nullptr);
    QAction a(u"a"_s), b(u"b"_s), c(u"c"_s);

    menu.addAction(nullptr, true);
    menu.addAction(&a, true);
    menu.addAction(&a, true);
    QCOMPARE(entries(menu), QStringList{u"a"_s});
    menu.addAction(&b, false);
    menu.addAction(&c, true);
    QCOMPARE(entries(menu), (QStringList{u"a"_s, u"c"_s, u"-"_s, u"b"_s}));

    menu.removeAction(&b);
    QCOMPARE(entries(menu), (QStringList{u"a"_s, u"c"_s}));
    menu.removeAction(&b);
    menu.addAction(&b, false);
    menu.removeAction(&a);
    menu.removeAction(&c);
    QCOMPARE(entries(menu), QStringList{u"b"_s});
}

VELMORA_TEST(tst_DynamicMenu);
#include "tst_dynamicmenu.moc"
