#pragma once

#include <QtCore/qlist.h>
#include <QtCore/qstring.h>

#include <optional>

namespace Velmora::Framework::Internal {

// One installed app: its folder (absolute) and, inside it, the program and icon.
struct AppEntry
{
    QString name;
    QString folder;
    QString program; // relative to folder
    QString icon; // relative to folder; may be empty
    QString description;

    // The program's canonical path; empty, with *reason, when it is missing or leaves folder.
    QString programPath(QString *reason) const;
    QString iconPath() const;
};

// The manifest an app folder holds: "app.ini" with Name, Program, Icon and Description in
// [App]. Nothing, with *reason, when it is missing, too large, incomplete or points outside.
std::optional<AppEntry> readAppManifest(const QString &folder, QString *reason);

// Reads the custom app file. A missing file is an empty list; false, with *reason, when it is
// too large, not well-formed or not shaped as <apps><app .../>...</apps>.
bool readAppList(const QString &path, QList<AppEntry> *apps, QString *reason);
// Replaces the custom app file atomically; false, with *reason, leaves the old one intact.
bool writeAppList(const QString &path, const QList<AppEntry> &apps, QString *reason);

} // namespace Velmora::Framework::Internal
