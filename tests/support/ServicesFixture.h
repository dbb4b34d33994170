#pragma once

#include "services/SettingsStore.h"
#include "support/RecordingDialogs.h"

#include <QMap>
#include <QTemporaryDir>
#include <QVariant>
#include <gtest/gtest.h>
#include <memory>

// Each test gets an empty store of its own, a program folder of its own ($VIGIL_HOME), a
// recorder for its boxes, English as the user's language, and the process-wide options and
// message catalogue as a fresh process has them.
class ServicesFixture : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    SettingsStore& store() { return *m_store; }
    QString programFolder() const { return m_home.path(); }
    // Writes `text` as MSG<code>/Vigil.msg in the program folder.
    void writeMessageFile(const QString& code, const QByteArray& text) const;
    // The English catalogue of `size` lines: each line the text `messages` gives for its
    // number, else `numbered` followed by the number, or empty when `numbered` is.
    void writeCatalogue(int size, const QMap<int, QByteArray>& messages = {},
                        const QByteArray& numbered = {}) const;
    // The value stored under the key in HKEY_LOCAL_MACHINE; invalid when there is none.
    static QVariant storedValue(const QString& key, const QString& name);
    void writeFile(const QString& relativePath, const QByteArray& bytes) const;

    QTemporaryDir m_home;
    std::shared_ptr<SettingsStore> m_store;
    std::shared_ptr<RecordingDialogs> m_dialogs;
};
