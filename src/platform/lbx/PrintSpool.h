#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>
#include <memory>
#include <optional>

struct sqlite3;

// The released print jobs, each written down before a byte of it is sent, in spool.sqlite
// beside the settings store. A job stays until its last copy has gone to the printer, so
// that jobs a program didn't finish are sent by the next program that takes them over.
//
// Every program that prints has a spool on the same file; a job belongs to the program that
// released it, or took it over once its program had ended, and only that one sends it.
// A file that can't be used, or a change it won't take, is told through trouble(); the jobs
// are then kept in memory for as long as this program runs.
class PrintSpool : public QObject
{
    Q_OBJECT

public:
    // The run-time's "path/file access error", for a spool file that can't be used.
    static constexpr qint32 SpoolFileError = 75;
    static constexpr int WatchIntervalMs = 1000;

    struct Job
    {
        enum class State { Waiting = 1, Sending = 2 };

        qint64 id = 0;
        QString queue;
        QString format;
        QByteArray data;
        qint32 quantity = 1;
        // Copies handed to the printer so far.
        qint32 sent = 0;
        QDateTime released;

        State state() const { return sent == 0 ? State::Waiting : State::Sending; }
    };

    explicit PrintSpool(QString filePath, QObject* parent = nullptr);
    ~PrintSpool() override;
    PrintSpool(const PrintSpool&) = delete;
    PrintSpool& operator=(const PrintSpool&) = delete;

    // spool.sqlite in the settings store's folder.
    static QString defaultFilePath();
    // The spool of this process, opened at the default path on first use.
    static std::shared_ptr<PrintSpool> process();
    static void install(std::shared_ptr<PrintSpool> spool);

    const QString& filePath() const { return m_filePath; }
    // Why the file isn't used; empty while it is.
    const QString& problem() const { return m_problem; }

    // Takes over the jobs of programs that have ended, and from now on notices jobs left by
    // others and jobs cancelled by others.
    void takeOver();

    // Keeps a new job, last of its queue; added() follows. Gives its id.
    qint64 add(const QString& queue, const QString& format, const QByteArray& data,
               qint32 quantity);
    // The first job of the queue that this program holds.
    std::optional<Job> next(const QString& queue) const;
    qint32 pendingFor(const QString& queue) const;
    // Notes one more copy sent. False when the job has been cancelled meanwhile: nothing
    // more of it is to be sent.
    bool copySent(qint64 id);
    // The last copy has gone: the job is struck off.
    void finish(qint64 id);

    // Every kept job, this program's and the others', in the order they were released.
    QList<Job> list();
    // False when there is no such job.
    bool cancel(qint64 id);

signals:
    // A job of this program's to send: new, or taken over.
    void added(const PrintSpool::Job& job);
    // The file can't be used or didn't take a change.
    void trouble(const QString& queue, const QString& text);

private:
    struct Row
    {
        Job job;
        // The process that holds it; 0 for none.
        qint64 owner = 0;
    };
    struct Held
    {
        Job job;
        // Written in the file; a job kept only in memory is nobody else's business.
        bool bStored = false;
    };

    void open();
    // Why the file is no spool of ours; empty when it is one, or new.
    QString foreignFile();
    bool exec(const char* sql);
    QString lastError() const;
    // A change the file didn't take: tells why; the job stays in memory.
    void fail(const QString& queue, const QString& what);
    // The same trouble twice in a row is told once.
    void tell(const QString& queue, const QString& text);
    QList<Row> readFile(bool& ok);
    bool claim(qint64 id);
    void watch();
    Held* find(qint64 id);

    QString m_filePath;
    QString m_problem;
    QString m_lastTrouble;
    sqlite3* m_db = nullptr;
    QList<Held> m_jobs;
    qint64 m_nextMemoryId = -1;
    qint64 m_dataVersion = -1;
    QTimer m_watch;
};
