#pragma once

#include "core/KeyedList.h"

#include <QString>
#include <QtGlobal>

struct DatabaseKey;
struct PromptedValue;

// One variable of a print job that the operator is asked for: copied from a job's prompted
// value or database key, shown by the prompt form, and written back into every job that has
// a variable of that name. A data source makes it a database prompt; any other is typed.
class clsPrompt
{
public:
    QString m_sVarName;
    QString m_sPrompt;
    QString m_sData;
    QString m_sDataSource;
    QString m_sKeyField;
    // -1: no limit of length.
    qint32 m_nMaxLen = -1;
    QString m_sMask;
    bool m_bMaskAllowSpaces = true;
    bool m_bMaskForceAllChars = false;
    bool m_bMaskForcedEntry = false;
    bool m_bMaskForcedLower = false;
    bool m_bMaskForcedUpper = false;
    // Carried unchanged for the print application.
    qint16 m_nType = 0;
    qint32 m_eUsageFlags = 0;

    void InitialiseFromPromptedValue(const PromptedValue& oPrompt);
    void InitialiseFromDatabaseKey(const DatabaseKey& oPrompt);
    bool IsDatabasePrompt() const { return !m_sDataSource.isEmpty(); }
};

// The prompts of one send, keyed by trimmed variable name, blind to case: the first job that
// has a variable gives its settings.
using PromptList = KeyedList<clsPrompt>;
