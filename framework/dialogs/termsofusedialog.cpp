#include "termsofusedialog.h"

#include "core/logging_p.h"

#include <QtCore/qfile.h>
#include <QtWidgets/qboxlayout.h>
#include <QtWidgets/qdialogbuttonbox.h>
#include <QtWidgets/qtextbrowser.h>

namespace Velmora::Framework {

TermsOfUseDialog::TermsOfUseDialog(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("TermsOfUseDialog"));
    setWindowTitle(tr("Terms of Use"));

    auto *text = new QTextBrowser;
    text->setObjectName(QStringLiteral("TermsText"));
    text->setOpenExternalLinks(true);
    QFile file(termsResource());
    if (file.open(QIODevice::ReadOnly))
        text->setHtml(QString::fromUtf8(file.readAll()));
    else
        qCWarning(Internal::lcDialogs, "TermsOfUseDialog: %s is missing from the resources",
                  qPrintable(termsResource()));

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text, 1);
    layout->addWidget(buttons);
    resize(620, 560);
}

TermsOfUseDialog::~TermsOfUseDialog() = default;

QString TermsOfUseDialog::termsResource()
{
    return QStringLiteral(":/framework/dialogs/termsofuse.html");
}

} // namespace Velmora::Framework
