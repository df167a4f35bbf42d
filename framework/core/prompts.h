#pragma once

#include "velmoraframework_global.h"

#include <QtCore/qstring.h>
#include <QtWidgets/qfiledialog.h>
#include <QtWidgets/qmessagebox.h>

#include <functional>

QT_BEGIN_NAMESPACE
class QDialog;
class QWidget;
QT_END_NAMESPACE

namespace Velmora::Framework {

// One modal question the library puts to the user.
struct VELMORA_FRAMEWORK_EXPORT PromptRequest
{
    enum Kind {
        Information,       // QMessageBox::information
        Warning,           // QMessageBox::warning
        Critical,          // QMessageBox::critical
        Question,          // QMessageBox::question
        OpenFileName,      // QFileDialog::getOpenFileName
        SaveFileName,      // QFileDialog::getSaveFileName
        ExistingDirectory, // QFileDialog::getExistingDirectory
        Text,              // QInputDialog::getText
        Dialog             // QDialog::exec of a dialog built by the library
    };

    Kind kind = Information;
    QWidget *parent = nullptr;
    // The box's title or the file dialog's caption.
    QString title;
    // The message, or the input dialog's label.
    QString text;
    // The file dialog's start folder or file, or the input dialog's pre-filled text.
    QString value;
    QString filter;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QFileDialog::Options options;
    // The dialog to run, for Dialog; the library owns it.
    QDialog *dialog = nullptr;
};

// The user's answer: the button or dialog code, and the chosen path or entered text.
struct VELMORA_FRAMEWORK_EXPORT PromptAnswer
{
    // A QMessageBox::StandardButton for boxes; QDialog::Accepted or Rejected otherwise.
    int code = 0;
    // The path or text; empty when cancelled.
    QString text;
};

// The one seam through which the library shows modal dialogs. The default responder opens the
// real Qt dialog exactly as asked; tests install their own to answer without a person.
class VELMORA_FRAMEWORK_EXPORT Prompts
{
public:
    using Responder = std::function<PromptAnswer(const PromptRequest &)>;

    static PromptAnswer ask(const PromptRequest &request);
    // Installs responder (an empty one restores the real dialogs); returns the previous one.
    static Responder setResponder(Responder responder);

    static QMessageBox::StandardButton information(QWidget *parent, const QString &title,
                                                   const QString &text);
    static QMessageBox::StandardButton critical(QWidget *parent, const QString &title,
                                                const QString &text);
    static QMessageBox::StandardButton question(QWidget *parent, const QString &title,
                                                const QString &text,
                                                QMessageBox::StandardButtons buttons);
    static QString getOpenFileName(QWidget *parent, const QString &caption,
                                   const QString &directory, const QString &filter);
    static QString getSaveFileName(QWidget *parent, const QString &caption,
                                   const QString &directory, const QString &filter);
    static QString getExistingDirectory(QWidget *parent, const QString &caption,
                                        const QString &directory, QFileDialog::Options options);
    // ok (may be null) tells whether the user accepted.
    static QString getText(QWidget *parent, const QString &title, const QString &label,
                           const QString &text, bool *ok);
    // Runs dialog modally and answers its result code.
    static int exec(QDialog *dialog);
};

} // namespace Velmora::Framework
