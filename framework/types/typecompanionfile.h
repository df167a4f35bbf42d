#pragma once

#include "velmoraframework_global.h"
#include "core/defaultfileaugmentable.h"

namespace Velmora::Framework {

// Keeps file operations tidy: clears an item before it is opened again, follows the current
// directory to what was opened or saved, and offers to save unsaved items before a close.
class VELMORA_FRAMEWORK_EXPORT TypeCompanionFile : public DefaultFileAugmentable
{
    Q_OBJECT

public:
    explicit TypeCompanionFile(QObject *parent = nullptr);
    ~TypeCompanionFile() override;

    bool beforeOpen(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterOpen(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool afterSave(const QList<ViewItem *> &items, const QVariant &argument) override;
    bool beforeClose(const QList<ViewItem *> &items, const QVariant &argument) override;

    // Makes the folder of path current when it exists.
    static bool change_dir(const QString &path);
    // Offers to save the unsaved items; false when the user cancels the close.
    static bool save_items(const QList<ViewItem *> &items);
    // Closes the loaded items that have children, through the first one's file type.
    static bool close_items(const QList<ViewItem *> &items);
    // Clears the same items, before they are opened again.
    static bool clear_items(const QList<ViewItem *> &items);
};

} // namespace Velmora::Framework
