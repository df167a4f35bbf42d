#include <QtCore/qobject.h>

// Declares the provider identifier but its root object is no provider.
class NotProvider : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "IProviderFactory.Velmora.Orvane" FILE "fixtureprovider.json")
};

#include "notprovider.moc"
