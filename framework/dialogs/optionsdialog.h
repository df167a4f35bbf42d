#pragma once

#include "dialogs/optiontopitem.h"
#include "velmoraframework_global.h"

#include <QtCore/qlist.h>
#include <QtWidgets/qdialog.h>

#include <memory>

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace Velmora::Framework {

class OptionPage;
class OptionsDialogPrivate;

// The options dialog: a tree of top items and their pages on the left, the current page on
// the right, and OK, Cancel and Apply. Providers register their pages; the values live in
// QSettings.
class VELMORA_FRAMEWORK_EXPORT OptionsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit OptionsDialog(QWidget *parent = nullptr);
    ~OptionsDialog() override;

    // The store the pages load from and save to (borrowed); null means the application's
    // default settings.
    void setSettings(QSettings *settings);

    // Takes ownership of page. false, with a warning, for a null page, a top item without a
    // title or a page already registered.
    bool registerOptionPage(const OptionTopItem &topItem, OptionPage *page);
    // Hands ownership of page back to the caller, unparented. false for an unknown page.
    bool unregisterOptionPage(OptionPage *page);
    // Removes and deletes every page: the code behind them may be about to be unloaded.
    void unregisterAll();

    // In tree order.
    QList<OptionPage *> pages() const;
    OptionPage *currentPage() const;
    void setCurrentPage(OptionPage *page);

public Q_SLOTS:
    // Saves every page; false when a page refused or the settings could not be written.
    bool apply();
    void accept() override;
    void setVisible(bool visible) override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void removePage(OptionPage *page);

    std::unique_ptr<OptionsDialogPrivate> const d;
};

} // namespace Velmora::Framework
