#pragma once

#include "ribdock_global.h"

#include <QtGui/qcolor.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Ribdock {

class RibbonGroup;
class RibbonPagePrivate;

// One tab of the ribbon: a row of groups. Contextual pages carry a colour of their own.
class RIBDOCK_EXPORT RibbonPage : public QWidget
{
    Q_OBJECT

public:
    explicit RibbonPage(const QString &title, QWidget *parent = nullptr);
    ~RibbonPage() override;

    QString title() const;
    void setTitle(const QString &title);

    bool isContextual() const;
    QColor contextColor() const;
    // An invalid colour makes the page an ordinary one.
    void setContextColor(const QColor &color);

    // Owned by the page, in the order they were added.
    RibbonGroup *addGroup(const QString &title);
    QList<RibbonGroup *> groups() const;

signals:
    void titleChanged(const QString &title);
    void contextColorChanged(const QColor &color);

private:
    std::unique_ptr<RibbonPagePrivate> const d;
};

} // namespace Velmora::Ribdock
