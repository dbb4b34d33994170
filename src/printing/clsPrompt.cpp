#include "printing/clsPrompt.h"

#include "drivers/PrintJob.h"

void clsPrompt::InitialiseFromPromptedValue(const PromptedValue& oPrompt)
{
    m_sVarName = oPrompt.VarName;
    m_sPrompt = oPrompt.Prompt;
    m_sData = oPrompt.Value;
    m_sDataSource.clear();
    m_sKeyField.clear();
    m_nMaxLen = oPrompt.NoMaxLength ? -1 : oPrompt.MaxLength;
    m_sMask = oPrompt.Mask;
    m_bMaskAllowSpaces = oPrompt.MaskAllowSpaces;
    m_bMaskForceAllChars = oPrompt.MaskForceAllChars;
    m_bMaskForcedEntry = oPrompt.MaskForcedEntry;
    m_bMaskForcedUpper = oPrompt.MaskForcedUpper;
    m_bMaskForcedLower = oPrompt.MaskForcedLower;
    m_nType = oPrompt.Type;
    m_eUsageFlags = oPrompt.UsageFlags;
}

void clsPrompt::InitialiseFromDatabaseKey(const DatabaseKey& oPrompt)
{
    *this = clsPrompt();
    m_sVarName = oPrompt.VarName;
    m_sPrompt = oPrompt.Prompt;
    m_sData = oPrompt.Value;
    m_sDataSource = oPrompt.DataSource;
    m_sKeyField = oPrompt.KeyField;
}
