#include "printing/IPromptForm.h"

#include "services/InstalledFactory.h"

#include <QStringList>

std::unique_ptr<IPromptForm> IPromptForm::create()
{
    if (std::unique_ptr<IPromptForm> form = InstalledFactory<IPromptForm>::make())
        return form;
    return std::make_unique<AnsweredPromptForm>();
}

void IPromptForm::install(Factory factory)
{
    InstalledFactory<IPromptForm>::install(std::move(factory));
}

PromptAnswers::PromptAnswers(const QHash<QString, QString>& answers)
{
    for (auto it = answers.cbegin(); it != answers.cend(); ++it)
        byName.insert(it.key().trimmed().toLower(), it.value());
}

AnsweredPromptForm::AnsweredPromptForm(std::shared_ptr<PromptAnswers> answers)
    : m_answers(answers ? std::move(answers) : std::make_shared<PromptAnswers>())
{}

void AnsweredPromptForm::DisplayPromptedVars(PromptList& colPrompts)
{
    m_values.clear();
    QStringList problems;
    for (const auto& prompt : colPrompts.snapshot()) {
        const QString name = prompt->m_sVarName.trimmed().toLower();
        const auto answer = m_answers->byName.constFind(name);
        if (answer == m_answers->byName.cend()) {
            m_values.insert(name, prompt->IsDatabasePrompt() ? QString() : prompt->m_sData);
            continue;
        }
        if (prompt->m_nMaxLen >= 0 && answer->size() > prompt->m_nMaxLen)
            problems.append(QStringLiteral("\"%1\" takes at most %2 characters")
                                .arg(prompt->m_sVarName.trimmed())
                                .arg(prompt->m_nMaxLen));
        m_values.insert(name, *answer);
    }
    QStringList unasked;
    for (auto it = m_answers->byName.cbegin(); it != m_answers->byName.cend(); ++it)
        if (!m_values.contains(it.key()))
            unasked.append(it.key());
    unasked.sort();
    if (!unasked.isEmpty())
        problems.append(
            QStringLiteral("no label of this send asks for %1").arg(unasked.join(", ")));
    m_answers->problem = problems.join(QStringLiteral("; "));
}

bool AnsweredPromptForm::SaveValues(PromptList& colPrompts)
{
    for (const auto& prompt : colPrompts.snapshot()) {
        const auto value = m_values.constFind(prompt->m_sVarName.trimmed().toLower());
        if (value != m_values.cend())
            prompt->m_sData = *value;
    }
    return true;
}
