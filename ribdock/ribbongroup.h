#pragma once

#include "ribdock_global.h"

#include <QtWidgets/qtoolbutton.h>
#include <QtWidgets/qwidget.h>

#include <memory>

namespace Velmora::Ribdock {

class RibbonGallery;
class RibbonGroupPrivate;
class RibbonSubgroup;

// A titled box of the ribbon page; its items run left to right in the order they are added.
class RIBDOCK_EXPORT RibbonGroup : public QWidget
{
    Q_OBJECT

public:
    explicit RibbonGroup(const QString &title, QWidget *parent = nullptr);
    ~RibbonGroup() override;

    QString title() const;
    void setTitle(const QString &title);

    // Buttons follow their action live; actions are borrowed. A "\n" in a large button's text
    // breaks it in two lines. An action with a menu opens it by the mode: InstantPopup on any
    // click, MenuButtonPopup only on its arrow (the rest of the button triggers the action).
    QToolButton *addLargeAction(QAction *action,
                                QToolButton::ToolButtonPopupMode mode = QToolButton::InstantPopup);
    // Consecutive small buttons stack in columns of three.
    QToolButton *addSmallAction(QAction *action,
                                QToolButton::ToolButtonPopupMode mode = QToolButton::InstantPopup);
    // Owned by the group.
    RibbonSubgroup *addSubgroup();
    RibbonGallery *addGallery();
    // Takes ownership of the widget.
    void addWidget(QWidget *widget);
    void addSeparator();

signals:
    void titleChanged(const QString &title);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::unique_ptr<RibbonGroupPrivate> const d;
};

} // namespace Velmora::Ribdock
