#include "printing/clsPrompts.h"

#include "services/VigilError.h"

std::shared_ptr<clsPromptData> clsPrompts::Add(const QString& sKey,
                                               std::shared_ptr<clsPromptData> oDefaultData)
{
    if (!oDefaultData)
        oDefaultData = std::make_shared<clsPromptData>();
    if (!m_col.add(sKey, oDefaultData))
        throw VigilError(VigilError::KeyAlreadyExists, QStringLiteral("clsPrompts"),
                         QStringLiteral("There is already a row keyed %1").arg(sKey));
    return oDefaultData;
}

