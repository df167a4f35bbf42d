#include "core/prompts.h"

#include <QtWidgets/qdialog.h>
#include <QtWidgets/qinputdialog.h>

namespace Velmora::Framework {

namespace {

PromptAnswer showRealDialog(const PromptRequest &request)
{
    PromptAnswer answer;
    switch (request.kind) {
    case PromptRequest::Information:
        answer.code = QMessageBox::information(request.parent, request.title, request.text,
                                               request.buttons);
        break;
    case PromptRequest::Warning:
        answer.code = QMessageBox::warning(request.parent, request.title, request.text,
                                           request.buttons);
        break;
    case PromptRequest::Critical:
        answer.code = QMessageBox::critical(request.parent, request.title, request.text,
                                            request.buttons);
        break;
    case PromptRequest::Question:
        answer.code = QMessageBox::question(request.parent, request.title, request.text,
                                            request.buttons);
        break;
    case PromptRequest::OpenFileName:
        answer.text = QFileDialog::getOpenFileName(request.parent, request.title, request.value,
                                                   request.filter, nullptr, request.options);
        break;
    case PromptRequest::SaveFileName:
        answer.text = QFileDialog::getSaveFileName(request.parent, request.title, request.value,
                                                   request.filter, nullptr, request.options);
        break;
    case PromptRequest::ExistingDirectory:
        answer.text = QFileDialog::getExistingDirectory(request.parent, request.title,
                                                        request.value, request.options);
        break;
    case PromptRequest::Text: {
        bool ok = false;
        answer.text = QInputDialog::getText(request.parent, request.title, request.text,
                                            QLineEdit::Normal, request.value, &ok);
        answer.code = ok ? QDialog::Accepted : QDialog::Rejected;
        if (!ok)
            answer.text.clear();
        break;
    }
    case PromptRequest::Dialog:
        answer.code = request.dialog ? request.dialog->exec() : QDialog::Rejected;
        break;
    }
    if (request.kind >= PromptRequest::OpenFileName && request.kind <= PromptRequest::ExistingDirectory)
        answer.code = answer.text.isEmpty() ? QDialog::Rejected : QDialog::Accepted;
    return answer;
}

Prompts::Responder &responder()
{
    static Prompts::Responder current;
    return current;
}

PromptRequest boxRequest(PromptRequest::Kind kind, QWidget *parent, const QString &title,
                         const QString &text, QMessageBox::StandardButtons buttons)
{
    PromptRequest request;
    request.kind = kind;
    request.parent = parent;
    request.title = title;
    request.text = text;
    request.buttons = buttons;
    return request;
}

QString askForPath(PromptRequest::Kind kind, QWidget *parent, const QString &caption,
                   const QString &directory, const QString &filter, QFileDialog::Options options)
{
    PromptRequest request;
    request.kind = kind;
    request.parent = parent;
    request.title = caption;
    request.value = directory;
    request.filter = filter;
    request.options = options;
    return Prompts::ask(request).text;
}

} // namespace

PromptAnswer Prompts::ask(const PromptRequest &request)
{
    const Responder &current = responder();
    return current ? current(request) : showRealDialog(request);
}

Prompts::Responder Prompts::setResponder(Responder responder)
{
    return std::exchange(Velmora::Framework::responder(), std::move(responder));
}

QMessageBox::StandardButton Prompts::information(QWidget *parent, const QString &title,
                                                 const QString &text)
{
    const PromptRequest request =
        boxRequest(PromptRequest::Information, parent, title, text, QMessageBox::Ok);
    return QMessageBox::StandardButton(ask(request).code);
}

QMessageBox::StandardButton Prompts::critical(QWidget *parent, const QString &title,
                                              const QString &text)
{
    const PromptRequest request =
        boxRequest(PromptRequest::Critical, parent, title, text, QMessageBox::Ok);
    return QMessageBox::StandardButton(ask(request).code);
}

QMessageBox::StandardButton Prompts::question(QWidget *parent, const QString &title,
                                              const QString &text,
                                              QMessageBox::StandardButtons buttons)
{
    const PromptRequest request =
        boxRequest(PromptRequest::Question, parent, title, text, buttons);
    return QMessageBox::StandardButton(ask(request).code);
}

QString Prompts::getOpenFileName(QWidget *parent, const QString &caption,
                                 const QString &directory, const QString &filter)
{
    return askForPath(PromptRequest::OpenFileName, parent, caption, directory, filter, {});
}

QString Prompts::getSaveFileName(QWidget *parent, const QString &caption,
                                 const QString &directory, const QString &filter)
{
    return askForPath(PromptRequest::SaveFileName, parent, caption, directory, filter, {});
}

QString Prompts::getExistingDirectory(QWidget *parent, const QString &caption,
                                      const QString &directory, QFileDialog::Options options)
{
    return askForPath(PromptRequest::ExistingDirectory, parent, caption, directory, QString(),
                      options);
}

QString Prompts::getText(QWidget *parent, const QString &title, const QString &label,
                         const QString &text, bool *ok)
{
    PromptRequest request;
    request.kind = PromptRequest::Text;
    request.parent = parent;
    request.title = title;
    request.text = label;
    request.value = text;
    const PromptAnswer answer = ask(request);
    const bool accepted = answer.code == QDialog::Accepted;
    if (ok)
        *ok = accepted;
    return accepted ? answer.text : QString();
}

int Prompts::exec(QDialog *dialog)
{
    PromptRequest request;
    request.kind = PromptRequest::Dialog;
    request.dialog = dialog;
    request.parent = dialog ? dialog->parentWidget() : nullptr;
    return ask(request).code;
}

} // namespace Velmora::Framework
