#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qwidget.h>

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace Velmora::Framework {

// One page of the options dialog. The dialog calls load() each time it is shown, so that
// Cancel discards what was edited, and save() on OK and Apply.
class VELMORA_FRAMEWORK_EXPORT OptionPage : public QWidget
{
    Q_OBJECT

public:
    explicit OptionPage(QWidget *parent = nullptr);
    ~OptionPage() override;

    // The page's entry in the tree under its top item.
    virtual QString title() const = 0;
    virtual void load(QSettings &settings) = 0;
    // false keeps the dialog open on this page; the page tells the user why.
    virtual bool save(QSettings &settings) = 0;

Q_SIGNALS:
    // Emitted by the page when the user edits it; enables Apply.
    void changed();
};

} // namespace Velmora::Framework
