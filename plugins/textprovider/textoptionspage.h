#pragma once

#include <dialogs/optionpage.h>

QT_BEGIN_NAMESPACE
class QCheckBox;
QT_END_NAMESPACE

namespace TextProvider {

// The sample's page of the options dialog. Settings live in the application's QSettings,
// under a group of the plug-in's own.
class TextOptionsPage : public Velmora::Framework::OptionPage
{
    Q_OBJECT

public:
    explicit TextOptionsPage(QWidget *parent = nullptr);

    static bool logFiles();

    QString title() const override;
    void load(QSettings &settings) override;
    bool save(QSettings &settings) override;

private:
    QCheckBox *m_logFiles;
};

} // namespace TextProvider
