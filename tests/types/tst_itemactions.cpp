#include "testsupport.h"
#include "testtypes.h"

#include "types/itemtypesolution.h"
#include "types/viewaction.h"
#include "types/viewmenu.h"

#include <functional>
#include <memory>

using namespace Velmora::Framework;
using namespace Qt::StringLiterals;

class tst_ItemActions : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        Velmora::Tests::failOnUnexpectedWarnings();
        auto *folder = new Velmora::Tests::TestType(u"folder"_s);
        folder->addChildType(u"leaf"_s, false);
        folder->addChildType(u"data"_s, false);
        folder->addChildType(u"script"_s, false);
        folder->addMandatoryChild(u"leaf"_s, u"keep"_s);
        auto *script = new Velmora::Tests::TestFileType(u"script"_s, u".s"_s);
        script->setFileMenus(ItemTypeFile::OpenMenu);
        auto *solution = new ItemTypeSolution;
        solution->addChildType(u"folder"_s, false);
        for (ItemType *type : std::initializer_list<ItemType *>{
                 folder, new Velmora::Tests::TestType(u"leaf"_s),
                 new Velmora::Tests::TestFileType(u"data"_s), script, solution})
            QVERIFY(m_registrar.registerType(type));

        m_solution.reset(m_registrar.createItem(solution->getId(), u"S"_s));
        ViewItem *f = m_registrar.createItem(u"folder"_s, u"F"_s);
        m_solution->addChildItem(f);
        m_items = {{u"S"_s, m_solution.get()}, {u"F"_s, f}};
        for (const auto &[type, name] : {std::pair{u"leaf"_s, u"keep"_s}, {u"leaf"_s, u"L"_s},
                                         {u"data"_s, u"D"_s}, {u"script"_s, u"O"_s}}) {
            ViewItem *child = m_registrar.createItem(type, name);
            f->addChildItem(child);
            m_items.insert(name, child);
        }
    }
    void cleanup()
    {
        m_solution.reset();
        m_items.clear();
        m_registrar.deallocateAll();
    }

    void availabilityAndState_data();
    void availabilityAndState();

private:
    TypeRegistrar m_registrar;
    std::unique_ptr<ViewItem> m_solution;
    QMap<QString, ViewItem *> m_items;
};

void tst_ItemActions::availabilityAndState_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("selection");
    QTest::addColumn<bool>("available");
    QTest::addColumn<bool>("enabled");

    QTest::newRow("view, nothing selected") << u"view"_s << QStringList{} << true << false;
    QTest::newRow("menu, nothing selected") << u"menu"_s << QStringList{} << true << false;
    QTest::newRow("menu, one item") << u"menu"_s << QStringList{u"L"_s} << true << true;
    QTest::newRow("add, nothing selected") << u"add"_s << QStringList{} << true << false;
    QTest::newRow("add to a parent") << u"add"_s << QStringList{u"F"_s} << true << true;
    QTest::newRow("add to a leaf") << u"add"_s << QStringList{u"L"_s} << true << false;
    QTest::newRow("add to two") << u"add"_s << QStringList{u"F"_s, u"L"_s} << false << false;
    QTest::newRow("paste to a parent") << u"paste"_s << QStringList{u"F"_s} << true << true;
    QTest::newRow("paste to a leaf") << u"paste"_s << QStringList{u"L"_s} << true << false;
    QTest::newRow("remove a leaf") << u"remove"_s << QStringList{u"L"_s} << true << true;
    QTest::newRow("remove the solution") << u"remove"_s << QStringList{u"S"_s} << true << false;
    QTest::newRow("remove a mandatory child") << u"remove"_s << QStringList{u"L"_s, u"keep"_s}
                                              << true << false;
    QTest::newRow("remove a mandatory child with its parent")
        << u"remove"_s << QStringList{u"keep"_s, u"F"_s} << true << true;
    QTest::newRow("rename a leaf") << u"rename"_s << QStringList{u"L"_s} << true << true;
    QTest::newRow("rename the solution") << u"rename"_s << QStringList{u"S"_s} << true << true;
    QTest::newRow("rename a mandatory child") << u"rename"_s << QStringList{u"keep"_s} << true
                                              << false;
    QTest::newRow("rename two") << u"rename"_s << QStringList{u"L"_s, u"D"_s} << true << false;
    QTest::newRow("save a file and a folder") << u"save"_s << QStringList{u"D"_s, u"F"_s}
                                              << false << false;
    QTest::newRow("save an open-only file") << u"save"_s << QStringList{u"O"_s} << true << false;
    QTest::newRow("save two files") << u"save"_s << QStringList{u"O"_s, u"D"_s} << true << true;
    QTest::newRow("open a file") << u"open"_s << QStringList{u"O"_s} << true << true;
}

void tst_ItemActions::availabilityAndState()
{
    QFETCH(QString, action);
    QFETCH(QStringList, selection);
    QFETCH(bool, available);
    QFETCH(bool, enabled);

    QList<ViewItem *> items;
    for (const QString &name : selection)
        items.append(m_items.value(name));
    const ViewItem *current = items.value(0);

    const QHash<QString, std::function<QObject *()>> make{
        {u"view"_s, [] { return new ViewAction(u"View"_s, nullptr); }},
        {u"menu"_s, [] { return new ViewMenu(u"Menu"_s, nullptr); }},
        {u"add"_s, [] { return new AddAction(u"Add"_s, nullptr); }},
        {u"paste"_s, [] { return new PasteAction(u"Paste"_s, nullptr); }},
        {u"remove"_s, [] { return new RemoveAction(u"Remove"_s, nullptr); }},
        {u"rename"_s, [] { return new RenameAction(u"Rename"_s, nullptr); }},
        {u"save"_s, [] { return new FileAction(ItemTypeFile::SaveMenu, nullptr); }},
        {u"open"_s, [] { return new FileAction(ItemTypeFile::OpenMenu, nullptr); }}};
    const std::unique_ptr<QObject> object(make.value(action)());
    auto *available_ = qobject_cast<IAvailable *>(object.get());
    QVERIFY(available_);
    QCOMPARE(available_->evaluateAvailability(current, items), available);
    QCOMPARE(available_->evaluateState(current, items), enabled);
    // The state is applied to the action or menu it was asked of.
    QCOMPARE(object->property("enabled").toBool(), enabled);
}

VELMORA_TEST(tst_ItemActions);
#include "tst_itemactions.moc"
