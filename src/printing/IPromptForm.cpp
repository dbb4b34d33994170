#include "printing/IPromptForm.h"

#include "services/InstalledFactory.h"

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

AnsweredPromptForm::AnsweredPromptForm(QHash<QString, QString> answers)
{
    for (auto it = answers.cbegin(); it != answers.cend(); ++it)
        m_answers.insert(it.key().trimmed().toLower(), it.value());
}

void AnsweredPromptForm::DisplayPromptedVars(PromptList& colPrompts)
{
    m_values.clear();
    for (const auto& prompt : colPrompts.snapshot()) {
        const QString name = prompt->m_sVarName.trimmed().toLower();
        const QString offered = prompt->IsDatabasePrompt() ? QString() : prompt->m_sData;
        m_values.insert(name, m_answers.value(name, offered));
    }
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

QStringList AnsweredPromptForm::unusedAnswers() const
{
    QStringList unused;
    for (auto it = m_answers.cbegin(); it != m_answers.cend(); ++it)
        if (!m_values.contains(it.key()))
            unused.append(it.key());
    unused.sort();
    return unused;
}
