#pragma once

#include "velmoraframework_global.h"
#include "shell/iproviderfactory.h"

#include <QtCore/qobject.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

class IBase;
class ProviderPrivate;

// The root object of a plug-in. A plug-in subclasses it (with Q_OBJECT) and adds
//     Q_PLUGIN_METADATA(IID "IProviderFactory.Velmora.Orvane" FILE "myprovider.json")
// to the subclass; the interface declarations come from here. The object belongs to its
// plug-in loader: the provider manager deletes it when it unloads the library.
//
// Life: init() for every provider, then start() for every provider; at exit stop() and then
// shutdown(), in the reverse order. The hub handed to init() is the only way into the
// framework: ask it for services with queryInterface().
class VELMORA_FRAMEWORK_EXPORT Provider : public QObject, public IProviderFactory
{
    Q_OBJECT
    Q_INTERFACES(QFactoryInterface Velmora::Framework::IProviderFactory)

public:
    // Needs a QApplication: the constructor creates the hidden widget().
    Provider();
    ~Provider() override;

    // Unique among the loaded providers; a second provider of a name is not loaded.
    virtual QString name() const = 0;
    virtual QString author() const = 0;
    virtual QString description() const = 0;
    // Packed: major in bits 24-31, minor 16-23, patch 8-15, build 0-7.
    virtual quint32 version() const = 0;
    // 0 primary (initialised and started first), 1 secondary; anything else is not loaded.
    virtual int type() const = 0;
    virtual quint32 order() const = 0;

    // Stores the hub (borrowed, lives until after shutdown()). An override must call this
    // one, or facilities() stays null.
    virtual void init(IBase *facilities);
    // Called once every provider has been initialised.
    virtual void start() = 0;
    virtual void stop() = 0;
    // The last call before the library is unloaded; the hub withdraws registered types,
    // services and windows by itself after every provider has shut down.
    virtual void shutdown() = 0;
    // Empty unless a provider says more.
    virtual QString getProviderComment() const;

    // "provider"
    QList<QString> keys() const override;
    // This provider for "provider", null for any other key.
    Provider *create(const QString &key) override;

    // Compare order() as unsigned numbers.
    bool operator<(const Provider &other) const;
    bool operator>(const Provider &other) const;

protected:
    // The hub given to init(); null before.
    IBase *facilities() const;
    // A parentless hidden widget, for a provider that needs a parent for its windows or a
    // receiver of events; deleted with the provider.
    QWidget *widget() const;

private:
    std::unique_ptr<ProviderPrivate> const d;
};

} // namespace Velmora::Framework
