#include "textoptionspage.h"

#include <QtCore/qsettings.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qcheckbox.h>

namespace TextProvider {

namespace {

const QString logFilesKey = QStringLiteral("TextProvider/logFiles");

} // namespace

TextOptionsPage::TextOptionsPage(QWidget *parent)
    : OptionPage(parent)
    , m_logFiles(new QCheckBox(tr("Log opened and saved files in the output window"), this))
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_logFiles);
    layout->addStretch(1);
    connect(m_logFiles, &QCheckBox::toggled, this, &OptionPage::changed);
}

bool TextOptionsPage::logFiles()
{
    return QSettings().value(logFilesKey, true).toBool();
}

QString TextOptionsPage::title() const
{
    return tr("Text Files");
}

void TextOptionsPage::load(QSettings &settings)
{
    m_logFiles->setChecked(settings.value(logFilesKey, true).toBool());
}

bool TextOptionsPage::save(QSettings &settings)
{
    settings.setValue(logFilesKey, m_logFiles->isChecked());
    return true;
}

} // namespace TextProvider
