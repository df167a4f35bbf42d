// A provider as small as a real one can be: built twenty times under as many names, it gives
// the start-up benchmark a full "plugins" folder to load, initialise and start.

#include <shell/provider.h>

using namespace Velmora::Framework;

class BenchProvider : public Provider
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "IProviderFactory.Velmora.Orvane" FILE "benchprovider.json")

public:
    QString name() const override { return QStringLiteral(BENCH_PROVIDER_NAME); }
    QString author() const override { return QStringLiteral("Benchmarks"); }
    QString description() const override { return QStringLiteral("Loaded to time start-up"); }
    quint32 version() const override { return 0x01000000; }
    int type() const override { return 0; } // primary
    quint32 order() const override { return 0; }
    void start() override {}
    void stop() override {}
    void shutdown() override {}
};

#include "benchprovider.moc"
