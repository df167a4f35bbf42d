#pragma once

#include "velmoraframework_global.h"
#include "core/actionhandler.h"
#include "types/itemtypeserializable.h"
#include "types/itypefile.h"

#include <QtCore/qstringlist.h>

#include <memory>

namespace Velmora::Framework {

class ItemTypeFilePrivate;

// Base of the item types stored in files: open, save, save as, close and clear, with the
// file dialogs, the loaded and dirty flags, and a file menu gated by the "fileMenus" property.
class VELMORA_FRAMEWORK_EXPORT ItemTypeFile : public ItemTypeSerializable, public ITypeFile
{
    Q_OBJECT
    Q_INTERFACES(Velmora::Framework::ITypeFile)
    Q_PROPERTY(uint fileMenus READ fileMenusValue WRITE setFileMenusValue)

public:
    enum FileMenu : uint { OpenMenu = 0x1, SaveMenu = 0x2, SaveAsMenu = 0x4, CloseMenu = 0x8 };
    Q_DECLARE_FLAGS(FileMenus, FileMenu)

    // How save_routine finds a path: ask when the item has none, always ask, or never ask.
    enum SaveMode { SaveNormal = 0, SaveAs = 1, SaveWithoutAsking = 2 };

    // Turns "cmdOpen", "cmdSave", "cmdSaveAs", "cmdClose" and "cmdClear" into the routines,
    // run under the file augmentation protocol. The argument carries the paths as a string
    // list; an empty item list means the selection around the type's context item.
    class VELMORA_FRAMEWORK_EXPORT FileActionHandler : public ActionHandler
    {
    public:
        explicit FileActionHandler(ItemTypeFile *type);
        ~FileActionHandler() override;

        QString augmentInterfaceId() override;
        bool handleCommand(const QString &command, const QList<ViewItem *> &items,
                           const QVariant &argument) override;
        static bool isFileCommand(const QString &command);

    private:
        ItemTypeFile *type() const;
    };

    explicit ItemTypeFile(QObject *parent = nullptr);
    ~ItemTypeFile() override;

    bool queryInterface(const char *iid, IBase **out) override;

    QString getId() const override;
    QString getDescription() const override;
    QString getDefaultPrefix() const override;

    // ITypeFile
    bool open(const QList<ViewItem *> &items) override;
    bool open(ViewItem *item, const QString &path) override;
    bool save(const QList<ViewItem *> &items) override;
    bool save(ViewItem *item, const QString &path) override;
    bool close(const QList<ViewItem *> &items) override;
    bool close(ViewItem *item) override;
    bool clear(const QList<ViewItem *> &items) override;
    bool clear(ViewItem *item) override;

    // Whether the item has a file (a non-empty path).
    virtual bool mapToFile(ViewItem *item) const;
    // The extension with its dot, such as ".qprj".
    virtual QString defaultExtension() const = 0;
    // The file dialogs' filter.
    virtual QString filter() const = 0;
    virtual bool canHandle(const QString &path) const = 0;

    QString existingFileFilter() const override;
    bool canOpenFile(const QString &path) const override;
    ViewItem *createItemFromFile(const QString &path) override;

    bool sourceCodeControllable() const;
    FileMenus fileMenus() const;
    void setFileMenus(FileMenus menus);

protected:
    bool dispatch(const QString &command) override;

    // Paths: entry i is item i's path when the lists match in length and it is not empty;
    // otherwise the item's own path. Answers what the last deserialize answered.
    virtual bool open_routine(const QList<ViewItem *> &items, const QStringList &paths);
    // True when every item was saved.
    virtual bool save_routine(const QList<ViewItem *> &items, const QStringList &paths, int mode);
    // Resets every item.
    virtual bool close_routine(const QList<ViewItem *> &items);
    // Forgets what was loaded: every item's data is neither loaded nor dirty afterwards.
    virtual bool clear_routine(const QList<ViewItem *> &items);

    FileActionHandler *fileHandler() const;

private:
    friend class FileActionHandler;
    uint fileMenusValue() const;
    void setFileMenusValue(uint menus);
    bool saveItem(ViewItem *item, QString path, int mode);

    std::unique_ptr<ItemTypeFilePrivate> const d;
};

} // namespace Velmora::Framework

Q_DECLARE_OPERATORS_FOR_FLAGS(Velmora::Framework::ItemTypeFile::FileMenus)
