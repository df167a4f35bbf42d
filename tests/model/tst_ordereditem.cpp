#include "testsupport.h"

#include "model/ordereditem.h"

#include <QtGui/qaction.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qmenu.h>

#include <algorithm>
#include <memory>

using namespace Velmora::Framework;

class tst_OrderedItem : public QObject
{
    Q_OBJECT

private slots:
    void init() { Velmora::Tests::failOnUnexpectedWarnings(); }

    void capturesTextAtConstruction();
    void deletesItsObjectUnlessGoneAlready();
    void stableAscendingOrder();
};

void tst_OrderedItem::capturesTextAtConstruction()
{
    auto *action = new QAction(QStringLiteral("Rena&me _name_"));
    OrderedItem fromAction(1, action, QStringLiteral("defaultMenus"), 0x40);
    action->setText(QStringLiteral("changed"));
    QCOMPARE(fromAction.text(), QStringLiteral("Rena&me _name_"));

    OrderedItem fromMenu(2, new QMenu(QStringLiteral("&Edit with...")));
    QCOMPARE(fromMenu.text(), QStringLiteral("&Edit with..."));

    OrderedItem separator(3, nullptr);
    QVERIFY(separator.text().isEmpty());
    QCOMPARE(separator.object(), nullptr);

    OrderedItem other(4, new QObject);
    QVERIFY(other.text().isEmpty());
    QVERIFY(other.object());
}

void tst_OrderedItem::deletesItsObjectUnlessGoneAlready()
{
    auto *action = new QAction(QStringLiteral("Cu&t"));
    QSignalSpy destroyed(action, &QObject::destroyed);
    auto entry = std::make_unique<OrderedItem>(65521, action);
    QCOMPARE(entry->object(), action);
    entry.reset();
    QCOMPARE(destroyed.size(), 1);

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
    std::vector<std::unique_ptr<OrderedItem>> owned;
    QList<OrderedItem *> entries;
    const int orders[] = {32, 16, 32, 17, 16, 32};
    for (int i = 0; i < 6; ++i) {
        owned.push_back(std::make_unique<OrderedItem>(orders[i], nullptr, QString::number(i)));
        entries.append(owned.back().get());
    }
    std::stable_sort(entries.begin(), entries.end(), &OrderedItem::ascendingSort);
    QStringList tags;
    for (const OrderedItem *entry : entries)
        tags.append(entry->tag());
    QCOMPARE(tags.join(QLatin1Char(' ')), QStringLiteral("1 4 3 0 2 5"));
    QVERIFY(!OrderedItem::ascendingSort(entries.at(0), entries.at(1)));
}

VELMORA_TEST(tst_OrderedItem);
#include "tst_ordereditem.moc"
