#include "appmanifest_p.h"

#include "core/savefile_p.h"
#include "dialogs/contentfile_p.h"

#include <QtCore/qdir.h>
#include <QtCore/qfile.h>
#include <QtCore/qfileinfo.h>
#include <QtCore/qsettings.h>
#include <QtCore/qxmlstream.h>

namespace Velmora::Framework::Internal {

namespace {
const qint64 manifestLimit = 64 * 1024;
const qint64 listLimit = 1024 * 1024;
const int appLimit = 1000;

const QLatin1String appsTag("apps");
const QLatin1String appTag("app");
const QLatin1String nameKey("name");
const QLatin1String folderKey("folder");
const QLatin1String programKey("program");
const QLatin1String iconKey("icon");
const QLatin1String descriptionKey("description");
} // namespace

QString AppEntry::programPath(QString *reason) const
{
    return resolveInside(folder, program, reason);
}

QString AppEntry::iconPath() const
{
    QString ignored;
    return icon.isEmpty() ? QString() : resolveInside(folder, icon, &ignored);
}

std::optional<AppEntry> readAppManifest(const QString &folder, QString *reason)
{
    const QString path = QDir(folder).filePath(QStringLiteral("app.ini"));
    if (!fitsReadLimit(path, manifestLimit, reason))
        return std::nullopt;
    QSettings manifest(path, QSettings::IniFormat);
    manifest.beginGroup(QStringLiteral("App"));
    AppEntry app;
    app.folder = QFileInfo(folder).canonicalFilePath();
    app.name = iniText(manifest, QStringLiteral("Name"));
    app.program = iniText(manifest, QStringLiteral("Program"));
    app.icon = iniText(manifest, QStringLiteral("Icon"));
    app.description = iniText(manifest, QStringLiteral("Description"));
    if (manifest.status() != QSettings::NoError) {
        *reason = QStringLiteral("app.ini is malformed");
        return std::nullopt;
    }
    if (app.name.isEmpty() || app.program.isEmpty()) {
        *reason = QStringLiteral("app.ini lacks Name or Program in [App]");
        return std::nullopt;
    }
    if (app.programPath(reason).isEmpty())
        return std::nullopt;
    if (!app.icon.isEmpty() && resolveInside(app.folder, app.icon, reason).isEmpty())
        return std::nullopt;
    return app;
}

bool readAppList(const QString &path, QList<AppEntry> *apps, QString *reason)
{
    apps->clear();
    if (!QFileInfo::exists(path))
        return true;
    if (!fitsReadLimit(path, listLimit, reason))
        return false;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *reason = file.errorString();
        return false;
    }
    QXmlStreamReader xml(&file);
    QString problem;
    int depth = 0;
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::DTD || token == QXmlStreamReader::EntityReference) {
            problem = QStringLiteral("declarations and entities are not allowed");
            break;
        }
        if (token == QXmlStreamReader::EndElement) {
            --depth;
        } else if (token == QXmlStreamReader::StartElement) {
            ++depth;
            // Only <apps> holding <app/> elements: anything deeper is not ours.
            if ((depth == 1 && xml.name() != appsTag) || (depth == 2 && xml.name() != appTag)
                || depth > 2) {
                problem = QStringLiteral("unexpected element <%1> at line %2")
                              .arg(xml.name().toString())
                              .arg(xml.lineNumber());
                break;
            }
            if (depth == 2) {
                if (apps->size() >= appLimit) {
                    problem = QStringLiteral("more than %1 apps").arg(appLimit);
                    break;
                }
                const QXmlStreamAttributes attributes = xml.attributes();
                AppEntry app;
                app.name = attributes.value(nameKey).toString();
                app.folder = attributes.value(folderKey).toString();
                app.program = attributes.value(programKey).toString();
                app.icon = attributes.value(iconKey).toString();
                app.description = attributes.value(descriptionKey).toString();
                if (app.name.isEmpty() || app.folder.isEmpty() || app.program.isEmpty()) {
                    problem = QStringLiteral("an app at line %1 lacks name, folder or program")
                                  .arg(xml.lineNumber());
                    break;
                }
                apps->append(app);
            }
        }
    }
    if (problem.isEmpty() && xml.hasError())
        problem = QStringLiteral("%1 at line %2").arg(xml.errorString()).arg(xml.lineNumber());
    if (problem.isEmpty())
        return true;
    *reason = problem;
    apps->clear();
    return false;
}

bool writeAppList(const QString &path, const QList<AppEntry> &apps, QString *reason)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(appsTag);
    for (const AppEntry &app : apps) {
        xml.writeEmptyElement(appTag);
        xml.writeAttribute(nameKey, app.name);
        xml.writeAttribute(folderKey, app.folder);
        xml.writeAttribute(programKey, app.program);
        if (!app.icon.isEmpty())
            xml.writeAttribute(iconKey, app.icon);
        if (!app.description.isEmpty())
            xml.writeAttribute(descriptionKey, app.description);
    }
    xml.writeEndElement();
    xml.writeEndDocument();

    return saveFile(
        path, [&bytes](QIODevice *device) { return device->write(bytes) == bytes.size(); },
        reason);
}

} // namespace Velmora::Framework::Internal
