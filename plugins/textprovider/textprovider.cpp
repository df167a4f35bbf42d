#include "textprovider.h"

#include "textoptionspage.h"
#include "texttypes.h"

#include <core/hubinterfaces.h>
#include <dialogs/optiontopitem.h>
#include <model/viewitem.h>
#include <types/itemtype.h>

#include <QtCore/qfileinfo.h>
#include <QtWidgets/qlabel.h>

namespace TextProvider {

namespace {

const QString outputTab = QStringLiteral("TextProvider");
const QString extensionsKey = QStringLiteral("TextProvider/extensions");
// The workbench's solution type looks its projects up in this scope.
const QString scope = QStringLiteral("default");

} // namespace

void TextProviderPlugin::init(IBase *hub)
{
    Provider::init(hub); // stores the hub: facilities() answers it from now on

    auto *types = interfaceCast<ITypeRegistrar>(hub);
    if (!types)
        return;
    // The registrar owns registered types and deletes them when providers unload.
    m_textType = new TextFileType([this](const QString &text) { log(text); });
    types->registerType(new ProjectType, scope);
    types->registerType(new FolderType, scope);
    types->registerType(m_textType, scope);
    // The type borrows the factory, which lives as long as this provider.
    types->registerEditorFactory(QLatin1String(TextTypeId), &m_editors);
    types->setDefaultEditorFactory(QLatin1String(TextTypeId), m_editors.name());

    if (auto *launchables = interfaceCast<ILaunchableRegistrar>(hub))
        launchables->registerLaunchable(this);
    if (auto *data = interfaceCast<IDataRegistrar>(hub))
        data->registerData(extensionsKey, QStringList(getExtensions()));
}

void TextProviderPlugin::start()
{
    // Output tabs, option pages and quick-start pages are taken over by the window that
    // shows them and withdrawn by the hub when providers unload.
    if (auto *output = interfaceCast<IOutputWindow>(facilities()))
        output->addTab(outputTab, tr("Text"), nullptr);
    if (auto *options = interfaceCast<IOptionsWindow>(facilities()))
        options->registerOptionPage(OptionTopItem(tr("Text Provider")), new TextOptionsPage);
    if (auto *quickStart = interfaceCast<IQuickStart>(facilities())) {
        auto *page = new QLabel(tr("<h3>Text and Markdown files</h3>"
                                   "<p>Open a <b>.txt</b> or <b>.md</b> file by naming it on "
                                   "the command line, or add text files to a text project.</p>"
                                   "<p>Markdown headings appear in the Outline window.</p>"));
        page->setWordWrap(true);
        page->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        page->setMargin(12);
        quickStart->addPage(page, tr("Text Files"));
    }
}

void TextProviderPlugin::stop()
{
    if (auto *launchables = interfaceCast<ILaunchableRegistrar>(facilities()))
        launchables->unregisterLaunchable(this);
    if (auto *data = interfaceCast<IDataRegistrar>(facilities()))
        data->unregisterData(extensionsKey);
}

void TextProviderPlugin::shutdown()
{
    for (const QPointer<ViewItem> &item : std::as_const(m_opened))
        delete item.data();
    m_opened.clear();
}

bool TextProviderPlugin::queryInterface(const char *iid, IBase **out)
{
    return queryByMetaCast(this, iid, out);
}

QList<QString> TextProviderPlugin::getExtensions()
{
    return {QStringLiteral("txt"), QStringLiteral("md"), QStringLiteral("qprj")};
}

QList<QString> TextProviderPlugin::getOptionNames()
{
    return {};
}

bool TextProviderPlugin::launch(const QList<QString> &arguments)
{
    auto *types = interfaceCast<ITypeRegistrar>(facilities());
    if (!types || !m_textType)
        return false;
    bool opened = false;
    for (const QString &argument : arguments) {
        const QFileInfo file(argument);
        if (file.suffix().compare(QLatin1String("qprj"), Qt::CaseInsensitive) == 0) {
            opened = openProject(file.absoluteFilePath()) || opened;
            continue;
        }
        // An item outside any project: this provider owns it until shutdown().
        ViewItem *item = types->createItem(QLatin1String(TextTypeId), file.fileName(), this);
        if (!item)
            continue;
        if (!m_textType->open(item, file.absoluteFilePath())) {
            delete item;
            continue;
        }
        m_opened.append(item);
        m_textType->edit(item, {}, QString()); // the default factory, in a document tab
        opened = true;
    }
    return opened;
}

// Into the open solution, as the ribbon's Open > Project does: the solution's type reads it.
bool TextProviderPlugin::openProject(const QString &path)
{
    auto *solution = interfaceCast<ISolution>(facilities());
    ViewItem *root = solution ? solution->solutionItem() : nullptr;
    ItemType *type = root ? root->getType() : nullptr;
    return type && type->addExisting(root, path);
}

void TextProviderPlugin::log(const QString &text)
{
    auto *output = interfaceCast<IOutputWindow>(facilities());
    if (output && TextOptionsPage::logFiles())
        output->output(outputTab, text);
}

} // namespace TextProvider
