#include "fixturejournal.h"

#include <core/defaultaggregatable.h>
#include <core/defaultgenericaugmentable.h>
#include <core/hubinterfaces.h>
#include <core/identifiers.h>
#include <dialogs/optionpage.h>
#include <dialogs/optiontopitem.h>
#include <shell/provider.h>
#include <types/itemtypefolder.h>

#include <QtCore/qpointer.h>

using namespace Velmora::Framework;

namespace {

class TidyFolder : public ItemTypeFolder
{
    Q_OBJECT

public:
    QString getId() const override { return QStringLiteral("tidy.folder"); }
};

class TidyPage : public OptionPage
{
    Q_OBJECT

public:
    QString title() const override { return QStringLiteral("Tidy"); }
    void load(QSettings &) override {}
    bool save(QSettings &) override { return true; }
};

} // namespace

// Takes back in stop() everything the hub would withdraw anyway after shutdown, and deletes
// what it is handed back.
class TidyProvider : public Provider
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "IProviderFactory.Velmora.Orvane" FILE "fixtureprovider.json")

public:
    QString name() const override { return QStringLiteral("Tidy"); }
    QString author() const override { return QString(); }
    QString description() const override { return QString(); }
    quint32 version() const override { return 0x01000000; }
    int type() const override { return 0; }
    quint32 order() const override { return 0; }

    void start() override
    {
        hub<ITypeRegistrar>()->registerType(new TidyFolder, QStringLiteral("default"));
        hub<IServiceRegistrar>()->registerService(QStringLiteral("tidy"), &m_service);
        hub<IAugmentableRegistrar>()->registerInterface(
            QString::fromLatin1(Iid::IAugmentableGeneric), &m_augmentable, 0);
        hub<IAggregatableRegistrar>()->registerAggregatable(&m_service);
        hub<IOutputWindow>()->addTab(QStringLiteral("tidy"), QStringLiteral("Tidy"), nullptr);
        m_page = new TidyPage;
        hub<IOptionsWindow>()->registerOptionPage(OptionTopItem(QStringLiteral("Tidy")), m_page);
        m_start = new QWidget;
        hub<IQuickStart>()->addPage(m_start, QStringLiteral("Tidy"));
        FixtureJournal::record(QStringLiteral("start Tidy"));
    }
    void stop() override
    {
        delete hub<ITypeRegistrar>()->unregisterType(QStringLiteral("tidy.folder"));
        hub<IServiceRegistrar>()->unregisterService(QStringLiteral("tidy"));
        hub<IAugmentableRegistrar>()->unregisterInterface(
            QString::fromLatin1(Iid::IAugmentableGeneric), &m_augmentable);
        hub<IAggregatableRegistrar>()->unregisterAggregatable(&m_service);
        hub<IOutputWindow>()->removeTab(QStringLiteral("tidy"));
        if (hub<IOptionsWindow>()->unregisterOptionPage(m_page))
            delete m_page;
        hub<IQuickStart>()->removePage(m_start);
        delete m_start;
        FixtureJournal::record(QStringLiteral("stop Tidy"));
    }
    void shutdown() override { FixtureJournal::record(QStringLiteral("shutdown Tidy")); }

private:
    template <typename Interface>
    Interface *hub() const
    {
        return interfaceCast<Interface>(facilities());
    }

    DefaultAggregatable m_service;
    DefaultGenericAugmentable m_augmentable;
    QPointer<OptionPage> m_page;
    QPointer<QWidget> m_start;
};

#include "tidyprovider.moc"
