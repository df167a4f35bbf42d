#include "shell/provider.h"

#include <QtCore/qpointer.h>
#include <QtWidgets/qwidget.h>

namespace Velmora::Framework {

class ProviderPrivate
{
public:
    IBase *facilities = nullptr;
    // Guarded: a provider may hand the widget to someone who deletes it first.
    QPointer<QWidget> widget;
};

Provider::Provider()
    : d(std::make_unique<ProviderPrivate>())
{
    d->widget = new QWidget;
    // Hidden explicitly, so it stays hidden should a provider give it a shown parent.
    d->widget->hide();
}

Provider::~Provider()
{
    delete d->widget.data();
}

void Provider::init(IBase *facilities)
{
    d->facilities = facilities;
}

QString Provider::getProviderComment() const
{
    return QString();
}

QList<QString> Provider::keys() const
{
    return {QStringLiteral("provider")};
}

Provider *Provider::create(const QString &key)
{
    return keys().contains(key) ? this : nullptr;
}

bool Provider::operator<(const Provider &other) const
{
    return order() < other.order();
}

bool Provider::operator>(const Provider &other) const
{
    return order() > other.order();
}

IBase *Provider::facilities() const
{
    return d->facilities;
}

QWidget *Provider::widget() const
{
    return d->widget;
}

} // namespace Velmora::Framework
