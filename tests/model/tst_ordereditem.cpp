#include "testsupport.h"

#include "model/ordereditem.h"

#include <QtGui/qaction.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qmenu.h>

#include <memory>

using namespace Velmora::Framework;

class tst_OrderedItem : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void capturesTextAndDeletesItsObjectUnlessGoneAlready();
    void stableAscendingOrder();
};

void tst_OrderedItem::capturesTextAndDeletesItsObjectUnlessGoneAlready()
{
    auto *action = new QAction(QStringLiteral("Rena&me _name_"));
    QSignalSpy destroyed(action, &QObject::destroyed);
    auto entry = std::make_unique<OrderedItem>(1, action, QStringLiteral("defaultMenus"), 0x40);
    action->setText(QStringLiteral("changed"));
    QCOMPARE(entry->text(), QStringLiteral("Rena&me _name_"));
    entry.reset();
    QCOMPARE(destroyed.size(), 1);
    OrderedItem fromMenu(2, new QMenu(QStringLiteral("&Edit with...")));
    QCOMPARE(fromMenu.text(), QStringLiteral("&Edit with..."));
    OrderedItem other(4, new QObject);
    QVERIFY(other.text().isEmpty());

    // An action with a Qt parent may go first when its owner is torn down.
    auto parent = std::make_unique<QObject>();
    entry = std::make_unique<OrderedItem>(1, new QAction(QStringLiteral("x"), parent.get()));
    parent.reset();
    QCOMPARE(entry->object(), nullptr);
    QCOMPARE(entry->text(), QStringLiteral("x"));
    entry.reset(); // must not delete it again
}

void tst_OrderedItem::stableAscendingOrder()
{
    // Strictly less, so that a stable sort keeps equal numbers in the order they were added.
    const OrderedItem first(16, nullptr), second(16, nullptr), later(32, nullptr);
    QVERIFY(OrderedItem::ascendingSort(&first, &later));
    QVERIFY(!OrderedItem::ascendingSort(&later, &first));
    QVERIFY(!OrderedItem::ascendingSort(&first, &second));
}

VELMORA_TEST(tst_OrderedItem);
#include "tst_ordereditem.moc"
