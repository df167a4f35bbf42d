#pragma once

#include "dialogs/optionpage.h"
#include "dialogs/optiontopitem.h"

#include <memory>

namespace Velmora::Framework {

class OptionPageGeneralPrivate;

// The framework's own page: the interface language (read at the next start), whether the
// quick-start window shows at start-up and whether the last solution is reopened.
class VELMORA_FRAMEWORK_EXPORT OptionPageGeneral : public OptionPage
{
    Q_OBJECT

public:
    explicit OptionPageGeneral(QWidget *parent = nullptr);
    ~OptionPageGeneral() override;

    // The top item the environment registers this page under.
    static OptionTopItem topItem();
    // "en" or "zh_CN"; an unknown stored value reads as "en", an unset one as the locale's.
    static QString languageSettingPath();
    // The language the settings choose, "en" or "zh_CN"; with nothing stored, the default
    // locale's (Chinese locales choose "zh_CN").
    static QString chosenLanguage(const QSettings &settings);
    // Boolean, default false.
    static QString reopenLastSolutionSettingPath();

    QString title() const override;
    void load(QSettings &settings) override;
    bool save(QSettings &settings) override;

private:
    std::unique_ptr<OptionPageGeneralPrivate> const d;
};

} // namespace Velmora::Framework
