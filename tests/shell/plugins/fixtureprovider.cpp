#include "fixturejournal.h"

#include <shell/provider.h>

using namespace Velmora::Framework;

// Built once per fixture with its own tag, name, type, version and order; journals every call of
// its life as "<call> <tag>", so two libraries of one name can be told apart.
class FixtureProvider : public Provider
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "IProviderFactory.Velmora.Orvane" FILE "fixtureprovider.json")

public:
    ~FixtureProvider() override { record("delete"); }

    QString name() const override { return QStringLiteral(FIXTURE_NAME); }
    QString author() const override { return QStringLiteral("Fixture author"); }
    QString description() const override
    {
        return QStringLiteral("Journals its life as ") + QStringLiteral(FIXTURE_TAG);
    }
    quint32 version() const override { return FIXTURE_VERSION; }
    int type() const override { return FIXTURE_TYPE; }
    quint32 order() const override { return FIXTURE_ORDER; }

    void init(IBase *hub) override
    {
        Provider::init(hub);
        record(hub && facilities() == hub ? "init" : "init without the hub");
    }
    void start() override { record("start"); }
    void stop() override { record("stop"); }
    void shutdown() override { record("shutdown"); }

private:
    static void record(const char *call)
    {
        FixtureJournal::record(QLatin1String(call) + QLatin1Char(' ')
                               + QLatin1String(FIXTURE_TAG));
    }
};

#include "fixtureprovider.moc"
