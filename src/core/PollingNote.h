#pragma once

#include <QDateTime>
#include <QString>

// Since when polling has been off, so that colours that stopped moving are not taken for live
// ones.
class PollingNote
{
public:
    // Told the polling state as it is now: the moment it is first seen off is kept until it is
    // seen on again.
    void follow(bool pollingOff, const QDateTime& now);
    // "Polling off since 14:03", with the date when that was another day than `now`; empty
    // while polling is on.
    QString text(const QDateTime& now) const;

private:
    QDateTime m_offSince;
};
