#pragma once
#include <QByteArray>
#include <QList>

// Gathers the fragments a byte queue delivers into whole printer replies, and tells after each
// fragment whether the reply is finished, by its length or an end marker, or failed, by the
// printer's error bytes. It knows nothing of what a reply means.
class clsResponseStitcher
{
public:
    enum StitchStatus {
        StitchError = 1,
        StitchIncomplete = 2,
        StitchComplete = 3,
        StitchSurplus = 4
    };

    clsResponseStitcher();

    void FixedLength(qint32 length); // -1: none
    void AcceptAnything(bool flag);
    void SetErrorStrings(const QList<QByteArray>& errors);
    void SetTempErrorStrings(const QList<QByteArray>& errors);
    void ClearTempErrors();
    void SetTerminiatingSequences(const QList<QByteArray>& terminators);
    void SetTempTerminiatingSequences(const QList<QByteArray>& terminators);
    void ClearTempTerminiatingSequences();
    void SetNextResponseType(qint32 type);
    StitchStatus StitchResponse(const QByteArray& data, qint32 type);
    // All fragments joined in order of arrival; with clear, the list is emptied afterwards.
    QByteArray GetCompleteResponse(bool clear);
    const QByteArray& LastError() const;
    // How many bytes the fragments in hand hold, so that an owner can bound a reply that
    // never ends.
    qsizetype heldBytes() const;
    // The set-up as one byte string (one character per byte), and back.
    QByteArray MakePortable() const;
    void FromPortable(const QByteArray& text);

private:
    StitchStatus LengthStatus() const;
    StitchStatus TerminatorStatus() const;

    // The fragments in hand, joined as they come so that no test has to join them again. Of
    // the fragments themselves only the newest one's type is ever needed; emptying can leave
    // it, since throwing away an empty reply once more changes nothing.
    QByteArray m_reply;
    qint32 m_replyType = 0;

    QList<QByteArray> m_errors;
    QList<QByteArray> m_savedErrors;
    QList<QByteArray> m_terminators;
    QList<QByteArray> m_savedTerminators;
    qint32 m_fixedLength = -1;
    bool m_acceptAnything = false;
    bool m_tempTerminators = false;
    bool m_tempErrors = false;
    QByteArray m_lastError;
};
