#pragma once

#include "core/prompts.h"

#include <QtCore/qlist.h>

#include <functional>
#include <utility>

namespace Velmora::Framework {

// Answers the library's modal dialogs without a person, for a plug-in's own tests: while the
// guard lives, every Prompts request is recorded and answered from the queued answers, then
// from the script; an unscripted request is answered as cancelled (code 0, no text).
//
//     ScriptedPrompts prompts;
//     prompts.answer(QDialog::Accepted);                  // the next dialog: accepted
//     prompts.answer(0, u"/tmp/notes.md"_s);              // then a file dialog: this path
//     ...
//     QCOMPARE(prompts.requests.first().kind, PromptRequest::Dialog);
//
// A library dialog (PromptRequest::Dialog) arrives built but not shown: set its fields in
// the script (DialogAddNew::setSelectedType(), setItemName()) before answering Accepted.
// Guards nest; the previous responder comes back when the guard goes.
class ScriptedPrompts
{
public:
    using Request = PromptRequest;
    using Answer = PromptAnswer;
    using Script = std::function<Answer(const Request &)>;

    explicit ScriptedPrompts(Script script = {})
        : m_script(std::move(script))
    {
        m_previous = Prompts::setResponder([this](const Request &request) {
            requests.append(request);
            if (!m_answers.isEmpty())
                return m_answers.takeFirst();
            return m_script ? m_script(request) : Answer{};
        });
    }
    ~ScriptedPrompts() { Prompts::setResponder(std::move(m_previous)); }

    ScriptedPrompts(const ScriptedPrompts &) = delete;
    ScriptedPrompts &operator=(const ScriptedPrompts &) = delete;

    // Queues an answer: a QMessageBox::StandardButton or QDialog code, and for file and
    // input dialogs the path or text. Queued answers go before the script, in order.
    void answer(int code, const QString &text = QString()) { m_answers.append(Answer{code, text}); }

    // Every request asked so far, in order.
    QList<Request> requests;

private:
    Script m_script;
    QList<Answer> m_answers;
    Prompts::Responder m_previous;
};

} // namespace Velmora::Framework
