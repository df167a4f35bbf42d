#include "optionpagegeneral.h"

#include "core/lazyicon.h"
#include "core/logging_p.h"
#include "dialogs/quickstartwindow.h"
#include "dialogs/settingsvalue_p.h"

#include <QtCore/qlocale.h>
#include <QtCore/qsettings.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qcheckbox.h>
#include <QtWidgets/qcombobox.h>
#include <QtWidgets/qformlayout.h>
#include <QtWidgets/qgroupbox.h>
#include <QtWidgets/qlabel.h>

namespace Velmora::Framework {

namespace {
const QLatin1String english("en");
const QLatin1String chinese("zh_CN");

// What an unset language setting means: the interface follows a Chinese locale.
QString localeLanguage()
{
    return QLocale().language() == QLocale::Chinese ? QString(chinese) : QString(english);
}
} // namespace

class OptionPageGeneralPrivate
{
public:
    QComboBox *language = nullptr;
    QCheckBox *showQuickStart = nullptr;
    QCheckBox *reopenLastSolution = nullptr;
};

OptionPageGeneral::OptionPageGeneral(QWidget *parent)
    : OptionPage(parent), d(std::make_unique<OptionPageGeneralPrivate>())
{
    setObjectName(QStringLiteral("OptionPageGeneral"));

    d->language = new QComboBox;
    d->language->setObjectName(QStringLiteral("Language"));
    d->language->addItem(tr("English"), QString(english));
    // Shown in its own script so that a reader of either language finds it.
    d->language->addItem(QStringLiteral("中文 (Chinese)"), QString(chinese));
    auto *note = new QLabel(tr("A change of language takes effect the next time the "
                               "application starts."));
    note->setWordWrap(true);
    note->setEnabled(false);
    auto *languageBox = new QGroupBox(tr("Language"));
    auto *languageLayout = new QFormLayout(languageBox);
    languageLayout->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    languageLayout->addRow(tr("Interface language:"), d->language);
    languageLayout->addRow(note);

    d->showQuickStart = new QCheckBox(tr("Show the quick-start window at start-up"));
    d->showQuickStart->setObjectName(QStringLiteral("ShowQuickStart"));
    d->reopenLastSolution = new QCheckBox(tr("Reopen the last solution at start-up"));
    d->reopenLastSolution->setObjectName(QStringLiteral("ReopenLastSolution"));
    auto *startBox = new QGroupBox(tr("Start-up"));
    auto *startLayout = new QVBoxLayout(startBox);
    startLayout->addWidget(d->showQuickStart);
    startLayout->addWidget(d->reopenLastSolution);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(languageBox);
    layout->addWidget(startBox);
    layout->addStretch(1);

    connect(d->language, &QComboBox::currentIndexChanged, this, &OptionPage::changed);
    connect(d->showQuickStart, &QCheckBox::toggled, this, &OptionPage::changed);
    connect(d->reopenLastSolution, &QCheckBox::toggled, this, &OptionPage::changed);
}

OptionPageGeneral::~OptionPageGeneral() = default;

OptionTopItem OptionPageGeneral::topItem()
{
    return OptionTopItem(tr("Environment"),
                         lazyIcon(QStringLiteral(":/framework/dialogs/images/environment.svg")));
}

QString OptionPageGeneral::languageSettingPath()
{
    return QStringLiteral("IDE/Language");
}

QString OptionPageGeneral::chosenLanguage(const QSettings &settings)
{
    const QVariant stored = settings.value(languageSettingPath());
    if (!stored.isValid())
        return localeLanguage();
    return stored.toString() == chinese ? QString(chinese) : QString(english);
}

QString OptionPageGeneral::reopenLastSolutionSettingPath()
{
    return QStringLiteral("IDE/ReopenLastSolution");
}

QString OptionPageGeneral::title() const
{
    return tr("General");
}

void OptionPageGeneral::load(QSettings &settings)
{
    const QSignalBlocker languageBlocker(d->language);
    const QSignalBlocker quickStartBlocker(d->showQuickStart);
    const QSignalBlocker reopenBlocker(d->reopenLastSolution);

    const QString language = settings.value(languageSettingPath(), localeLanguage()).toString();
    int index = d->language->findData(language);
    if (index < 0) {
        qCWarning(Internal::lcDialogs,
                  "OptionPageGeneral::load(): unknown language \"%s\" for %s, using English",
                  qPrintable(language), qPrintable(languageSettingPath()));
        index = 0;
    }
    d->language->setCurrentIndex(index);
    d->showQuickStart->setChecked(Internal::readBoolSetting(
        settings, QuickStartWindow::onStartSettingPath(), true, "OptionPageGeneral::load()"));
    d->reopenLastSolution->setChecked(Internal::readBoolSetting(
        settings, reopenLastSolutionSettingPath(), false, "OptionPageGeneral::load()"));
}

bool OptionPageGeneral::save(QSettings &settings)
{
    settings.setValue(languageSettingPath(), d->language->currentData());
    settings.setValue(QuickStartWindow::onStartSettingPath(), d->showQuickStart->isChecked());
    settings.setValue(reopenLastSolutionSettingPath(), d->reopenLastSolution->isChecked());
    return true;
}

} // namespace Velmora::Framework
