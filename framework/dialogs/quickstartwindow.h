#pragma once

#include "velmoraframework_global.h"

#include <QtWidgets/qwidget.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace Velmora::Framework {

class QuickStartWindowPrivate;

// The window shown at start-up with the pages that providers add (getting started, recent
// work, news), and a "Show at start-up" check box bound to onStartSettingPath().
class VELMORA_FRAMEWORK_EXPORT QuickStartWindow : public QWidget
{
    Q_OBJECT

public:
    explicit QuickStartWindow(QWidget *parent = nullptr);
    ~QuickStartWindow() override;

    // The Boolean settings key that says whether the window shows at start-up (default true).
    static QString onStartSettingPath();

    // The store of the check box (borrowed); null means the application's default settings.
    void setSettings(QSettings *settings);

    // Takes ownership of page and answers its index; -1, with a warning, for a null page or
    // one already added.
    int addPage(QWidget *page, const QString &title);
    // -1 for a page that is not here.
    int indexOf(QWidget *page) const;
    // Hands the page back to the caller, unparented; null for an index out of range.
    QWidget *removePage(int index);
    QWidget *page(int index) const;
    int count() const;

protected:
    // Re-reads the check box: the options dialog edits the same setting.
    void showEvent(QShowEvent *event) override;

private:
    void loadSetting();

    std::unique_ptr<QuickStartWindowPrivate> const d;
};

} // namespace Velmora::Framework
