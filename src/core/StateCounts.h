#pragma once

#include "core/ErrorState.h"

#include <QJsonObject>
#include <QString>
#include <array>
#include <optional>

class TreeNode;

// How many printers at or below a node are in each state, and what a monitoring system makes
// of that: the verdict, and the first line of a monitoring plugin's answer.
class StateCounts
{
public:
    // A monitoring plugin's exit codes.
    enum Verdict { Ok = 0, Warning = 1, Critical = 2, Unknown = 3 };

    static StateCounts of(TreeNode& node);
    // The state a printer is counted in: a state no driver gives counts as a fault.
    static ErrorState countedAs(qint32 state);
    void add(qint32 state);
    // One printer fewer in that state; a count never goes below 0.
    void take(qint32 state);

    int printers() const;
    int count(qint32 state) const;
    // The count with its word: "1 fault", "2 faults", "3 no answer".
    QString told(qint32 state) const;
    // The state of the worst trouble there is, faults before no answer before busy ports
    // before warnings; none when every enabled printer is well.
    std::optional<ErrorState> worstTrouble() const;
    // From the worst state of the enabled printers: good, or no printer at all, is Ok; a
    // warning Warning; a fault, a busy port or no answer Critical. A disabled printer is
    // counted but makes nothing worse.
    Verdict verdict() const;
    // "CRITICAL - 12 printers: 9 good, 1 warning, 1 fault, 1 no answer | good=9 warning=1
    // fault=1 noanswer=1 busy=0 disabled=0"
    QString pluginLine() const;
    // The verdict's word, the number of printers and each count by its label.
    QJsonObject json() const;

    // The answer of a check that could not run.
    static QString unknownLine(const QString& problem);

private:
    static constexpr int States = 6;
    std::array<int, States> m_counts{};
};
