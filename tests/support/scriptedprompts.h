#pragma once

#include "core/prompts.h"

#include <QtCore/qlist.h>

#include <functional>
#include <utility>

namespace Velmora::Tests {

// Answers the library's modal dialogs for the life of the guard and records every request,
// so a test can check what was asked. Unscripted requests are answered as cancelled.
class ScriptedPrompts
{
public:
    using Request = Velmora::Framework::PromptRequest;
    using Answer = Velmora::Framework::PromptAnswer;
    using Script = std::function<Answer(const Request &)>;

    explicit ScriptedPrompts(Script script = {})
        : m_script(std::move(script))
    {
        m_previous = Velmora::Framework::Prompts::setResponder([this](const Request &request) {
            requests.append(request);
            if (!m_answers.isEmpty())
                return m_answers.takeFirst();
            return m_script ? m_script(request) : Answer{};
        });
    }
    ~ScriptedPrompts() { Velmora::Framework::Prompts::setResponder(std::move(m_previous)); }

    ScriptedPrompts(const ScriptedPrompts &) = delete;
    ScriptedPrompts &operator=(const ScriptedPrompts &) = delete;

    // Queues answers, used in order before the script.
    void answer(int code, const QString &text = QString()) { m_answers.append(Answer{code, text}); }

    QList<Request> requests;

private:
    Script m_script;
    QList<Answer> m_answers;
    Velmora::Framework::Prompts::Responder m_previous;
};

} // namespace Velmora::Tests
