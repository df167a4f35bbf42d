#include "testsupport.h"
#include "testtypes.h"

#include "model/itemdata.h"
#include "model/itempropertybag.h"
#include "views/propertymodel.h"
#include "views/propertywindow.h"

#include <QtCore/qmetaobject.h>
#include <QtGui/qcursor.h>
#include <QtGui/qfont.h>
#include <QtTest/qabstractitemmodeltester.h>
#include <QtTest/qsignalspy.h>
#include <QtWidgets/qlabel.h>
#include <QtWidgets/qsizepolicy.h>
#include <QtWidgets/qstyleditemdelegate.h>
#include <QtWidgets/qtreeview.h>

#include <memory>

using namespace Velmora::Framework;

namespace {

class NamedData : public ItemData
{
public:
    using ItemData::ItemData;
    void constructPropertyDisplayNames(QList<QPair<QString, QString>> &names) override
    {
        names.append({QStringLiteral("count"), QStringLiteral("Count")});
    }
    void constructPropertyTooltips(QList<QPair<QString, QString>> &tips) override
    {
        tips.append({QStringLiteral("count"), QStringLiteral("How many there are")});
    }
};

class NamedType : public Velmora::Tests::TestType
{
public:
    using TestType::TestType;
    ItemData *createDataInstance(QObject *parent) override { return new NamedData(parent); }
};

// The index of the value column below parent whose name column reads label.
QModelIndex valueAt(const QAbstractItemModel &model, const QModelIndex &parent, const QString &label)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        if (model.index(row, PropertyModel::NameColumn, parent).data().toString() == label)
            return model.index(row, PropertyModel::ValueColumn, parent);
    }
    return QModelIndex();
}

} // namespace

class tst_PropertyWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup()
    {
        m_tester.reset();
        m_window.reset();
        delete m_item;
        m_tree.reset();
    }

    void editorsWriteBackIntoTheBag_data();
    void editorsWriteBackIntoTheBag();
    void changesElsewhereShowAtOnce();
    void opensWhenATypeAsks();

private:
    std::unique_ptr<Velmora::Tests::TestTree> m_tree;
    NamedType *m_type = nullptr;
    ViewItem *m_item = nullptr;
    std::unique_ptr<PropertyWindow> m_window;
    std::unique_ptr<QAbstractItemModelTester> m_tester;
};

void tst_PropertyWindow::init()
{
    Velmora::Tests::failOnUnexpectedWarnings();
    m_tree = std::make_unique<Velmora::Tests::TestTree>();
    m_type = new NamedType(QStringLiteral("named"));
    m_tree->registrar.registerType(m_type);
    m_item = m_tree->make(QStringLiteral("named"), QStringLiteral("item"));
    m_window = std::make_unique<PropertyWindow>();
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_window->model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    m_window->setItem(m_item);
}

void tst_PropertyWindow::editorsWriteBackIntoTheBag_data()
{
    QTest::addColumn<QVariant>("initial");
    QTest::addColumn<QStringList>("path");
    QTest::addColumn<QVariant>("edited");
    QTest::addColumn<QVariant>("expected");

    const auto policy = [](QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical,
                           int stretch = 0) {
        QSizePolicy value(horizontal, vertical);
        value.setHorizontalStretch(stretch);
        return QVariant::fromValue(value);
    };
    // Edited at the top level: the bag stores the edited value as it is.
    const auto plain = [](const char *name, const QVariant &initial, const QVariant &edited) {
        QTest::newRow(name) << initial << QStringList() << edited << edited;
    };
    plain("boolean", true, false);
    plain("integer", 3, 42);
    plain("colour", QColor(Qt::red), QColor(0, 128, 255, 100));
    QFont small(QStringLiteral("DejaVu Sans"), 10);
    QFont large = small;
    large.setPointSize(14);
    plain("font", small, large);
    plain("point", QPoint(1, 2), QPoint(-3, 4));
    plain("rectangle", QRect(1, 2, 3, 4), QRect(5, 6, 7, 8));
    plain("size", QSize(1, 2), QSize(30, 40));
    plain("enumeration", QVariant::fromValue(QSizePolicy::Fixed),
          QVariant::fromValue(QSizePolicy::Expanding));
    QTest::newRow("size policy, vertical")
        << policy(QSizePolicy::Preferred, QSizePolicy::Fixed) << QStringList{"Vertical Policy"}
        << QVariant::fromValue(QSizePolicy::Expanding)
        << policy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    QTest::newRow("size policy, stretch")
        << policy(QSizePolicy::Preferred, QSizePolicy::Fixed) << QStringList{"Horizontal Stretch"}
        << QVariant(3) << policy(QSizePolicy::Preferred, QSizePolicy::Fixed, 3);
    QTest::newRow("cursor") << QVariant(QCursor(Qt::ArrowCursor)) << QStringList()
                            << QVariant::fromValue(Qt::IBeamCursor)
                            << QVariant(QCursor(Qt::IBeamCursor));
    QTest::newRow("flags") << QVariant::fromValue(Qt::Alignment(Qt::AlignLeft))
                           << QStringList{"AlignRight"} << QVariant(true)
                           << QVariant::fromValue(Qt::AlignLeft | Qt::AlignRight);
    QTest::newRow("list") << QVariant(QVariantList{1, QStringLiteral("x")}) << QStringList{"[1]"}
                          << QVariant(QStringLiteral("y"))
                          << QVariant(QVariantList{1, QStringLiteral("y")});
    QTest::newRow("string list") << QVariant(QStringList{"a", "b"}) << QStringList{"[0]"}
                                 << QVariant(QStringLiteral("z")) << QVariant(QStringList{"z", "b"});
    QTest::newRow("map") << QVariant(QVariantMap{{"w", 1}, {"h", 2}}) << QStringList{"w"}
                         << QVariant(5) << QVariant(QVariantMap{{"w", 5}, {"h", 2}});
    QTest::newRow("container") << QVariant(QVariantHash{{"k", QSize(1, 1)}}) << QStringList{"k"}
                               << QVariant(QSize(2, 2)) << QVariant(QVariantHash{{"k", QSize(2, 2)}});
}

void tst_PropertyWindow::editorsWriteBackIntoTheBag()
{
    QFETCH(QVariant, initial);
    QFETCH(QStringList, path);
    QFETCH(QVariant, edited);
    QFETCH(QVariant, expected);

    ItemPropertyBag *bag = m_item->getPropertyBag();
    bag->set(QStringLiteral("value"), initial);
    PropertyModel *model = m_window->model();
    QModelIndex index = valueAt(*model, QModelIndex(), QStringLiteral("value"));
    for (const QString &label : path)
        index = valueAt(*model, index.siblingAtColumn(PropertyModel::NameColumn), label);
    QVERIFY(index.isValid());
    QSignalSpy changed(m_window.get(), &PropertyWindow::propertyChanged);

    if (edited.userType() == QMetaType::Bool) {
        QVERIFY(model->flags(index) & Qt::ItemIsUserCheckable);
        QVERIFY(model->setData(index, edited.toBool() ? Qt::Checked : Qt::Unchecked,
                               Qt::CheckStateRole));
    } else {
        QVERIFY(model->flags(index) & Qt::ItemIsEditable);
        QTreeView *tree = m_window->treeView();
        auto *delegate = qobject_cast<QStyledItemDelegate *>(tree->itemDelegate());
        std::unique_ptr<QWidget> editor(
            delegate->createEditor(tree->viewport(), QStyleOptionViewItem(), index));
        QVERIFY(editor);
        delegate->setEditorData(editor.get(), index);
        const QMetaProperty user = editor->metaObject()->userProperty();
        QCOMPARE(editor->property(user.name()), index.data(Qt::EditRole));
        QVERIFY(editor->setProperty(user.name(), edited));
        delegate->setModelData(editor.get(), model, index);
    }

    QVariant stored;
    QVERIFY(bag->get(QStringLiteral("value"), &stored));
    if (expected.userType() == QMetaType::QCursor)
        QCOMPARE(stored.value<QCursor>().shape(), expected.value<QCursor>().shape());
    else
        QCOMPARE(stored, expected);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().at(1).toString(), QStringLiteral("value"));
    QCOMPARE(index.data(Qt::EditRole).userType(), edited.userType());
}

void tst_PropertyWindow::changesElsewhereShowAtOnce()
{
    ItemPropertyBag *bag = m_item->getPropertyBag();
    PropertyModel *model = m_window->model();
    bag->set(QStringLiteral("count"), 1);
    QModelIndex count = valueAt(*model, QModelIndex(), QStringLiteral("Count"));
    QCOMPARE(count.data().toString(), QStringLiteral("1"));
    QCOMPARE(count.data(Qt::ToolTipRole).toString(), QStringLiteral("How many there are"));

    QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
    bag->set(QStringLiteral("count"), 2);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(count.data().toString(), QStringLiteral("2"));

    bag->set(QStringLiteral("list"), QVariantList{1});
    QModelIndex list = valueAt(*model, QModelIndex(), QStringLiteral("list"));
    QCOMPARE(list.data().toString(), QStringLiteral("[1 item]"));
    bag->set(QStringLiteral("list"), QVariantList{1, 2, 3});
    list = valueAt(*model, QModelIndex(), QStringLiteral("list"));
    QCOMPARE(model->rowCount(list.siblingAtColumn(0)), 3);

    // Removal is silent; the window reads the bag again when told.
    bag->remove(QStringLiteral("list"));
    QCOMPARE(model->rowCount(), 2);
    model->reload();
    QCOMPARE(model->rowCount(), 1);

    delete m_item;
    m_item = nullptr;
    QCOMPARE(model->rowCount(), 0);
    QVERIFY(!m_window->item());
    QStringList labels;
    for (const QLabel *label : m_window->findChildren<QLabel *>())
        labels.append(label->text());
    QVERIFY(labels.contains(QStringLiteral("No item selected")));
}

void tst_PropertyWindow::opensWhenATypeAsks()
{
    QWidget host; // as in the main window's panel
    m_window->setParent(&host);
    m_window->hide();
    QSignalSpy opened(m_window.get(), &PropertyWindow::openRequested);
    m_window->watch(&m_tree->registrar);
    emit m_type->propertyWindowRequested();
    QCOMPARE(opened.size(), 1);
    QVERIFY(!m_window->isHidden());
    m_window->watch(nullptr);
    emit m_type->propertyWindowRequested();
    QCOMPARE(opened.size(), 1);
    m_window->setParent(nullptr);
}

VELMORA_TEST(tst_PropertyWindow);
#include "tst_propertywindow.moc"
