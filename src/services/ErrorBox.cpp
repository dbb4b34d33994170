#include "services/ErrorBox.h"

#include "services/ApplicationOptions.h"
#include "services/IDialogs.h"
#include "services/VigilError.h"

void ShowError(const QString& text, const QString& context)
{
    IDialogs::Box box;
    box.text = text;
    box.title = GetErrorTitle(context);
    box.icon = IDialogs::Icon::Warning;
    IDialogs::process().show(box);
}

QString GetErrorTitle(const QString& context)
{
    const QString title = ApplyBranding(ProgramTitle);
    return context.isEmpty() ? title : context + QStringLiteral(" - ") + title;
}

void ShowTrappedError(const VigilError& error, const QString& context)
{
    ShowError(error.description() + QStringLiteral(" - ") + QString::number(error.number()),
              context);
}

void ShowTrappedError(const std::exception& error, const QString& context)
{
    if (const auto* ours = dynamic_cast<const VigilError*>(&error))
        ShowTrappedError(*ours, context);
    else
        ShowError(QString::fromLocal8Bit(error.what()) + QStringLiteral(" - 0"), context);
}
