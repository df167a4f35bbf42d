#pragma once

#include "texteditor.h"

#include <core/ilaunchable.h>
#include <shell/provider.h>

#include <QtCore/qpointer.h>

namespace TextProvider {

class TextFileType;

// The plug-in's root object. It reaches the framework only through the hub handed to
// init(): every service below is asked for by interface, and none is kept across a stop.
// It is also the launchable for ".txt" and ".md" arguments, so "Tessaly notes.md" opens the
// file in an editor, and for ".qprj" ones, so "Tessaly Notes.qprj" opens the text project.
class TextProviderPlugin : public Provider, public ILaunchable
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "IProviderFactory.Velmora.Orvane" FILE "textprovider.json")
    Q_INTERFACES(Velmora::Framework::ILaunchable)

public:
    QString name() const override { return QStringLiteral("Text Provider"); }
    QString author() const override { return QStringLiteral("Velmora"); }
    QString description() const override { return tr("Opens and edits text and Markdown files"); }
    quint32 version() const override { return 0x01000000; } // 1.0
    int type() const override { return 0; }                 // primary
    quint32 order() const override { return 100; }

    // Types and services, which other providers may look up when they start.
    void init(IBase *facilities) override;
    // Windows and pages.
    void start() override;
    // Withdraws what the hub keeps after providers unload: launchables and data values.
    void stop() override;
    // Closes the files opened from the command line while their type still exists; the hub
    // then withdraws types, output tabs and pages by itself.
    void shutdown() override;

    bool queryInterface(const char *iid, IBase **out) override;

    // ILaunchable
    QList<QString> getExtensions() override;
    QList<QString> getOptionNames() override;
    bool launch(const QList<QString> &arguments) override;

private:
    void log(const QString &text);
    bool openProject(const QString &path);

    TextEditorFactory m_editors;
    QPointer<TextFileType> m_textType; // the registrar owns and deletes it
    QList<QPointer<ViewItem>> m_opened;
};

} // namespace TextProvider
