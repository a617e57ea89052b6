// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tolvane {

/// One step from a list to another one.
struct ListStep
{
    enum class Kind { insert, remove, move, change };

    Kind kind;
    /// The first row. What is inserted there or changed is at the same rows of the new list.
    qsizetype row;
    /// The number of rows; of a move, which moves one row, its new position.
    qsizetype count;
};

/// Absent for lists that differ in too much: replace all rows at once.
using ListSteps = std::optional<std::vector<ListStep>>;

/// A list, another one that replaces it, and the steps between them.
template <typename Record>
struct ListUpdate
{
    QList<Record> before;
    QList<Record> after;
    ListSteps steps = std::vector<ListStep>();
};

/// Finds the fewest insertions, removals, moves and changes from one list to another. Records are
/// matched by their `id`; one that is listed twice has two rows. Takes a time that is linear in the
/// size of the lists, so long ones are compared on a worker.
template <typename Record>
class ListComparison
{
public:
    static ListSteps steps(const QList<Record> &before, const QList<Record> &after)
    {
        ListComparison comparison(before, after);
        if (!comparison.compare())
            return std::nullopt;
        return std::move(comparison.m_steps);
    }

private:
    using Kind = ListStep::Kind;
    using IdCounts = QHash<QString, int>;
    using Rows = std::vector<const Record *>;

    /// Applying a shuffled list takes one step for each record.
    static constexpr int maximumSteps = 200;

    ListComparison(const QList<Record> &before, const QList<Record> &after)
        : m_before(before)
        , m_after(after)
    {
    }

    bool compare()
    {
        // Most new lists differ from the old one at one end only, if at all.
        const qsizetype common = std::min(m_before.size(), m_after.size());
        while (m_first < common && m_before.at(m_first).id == m_after.at(m_first).id)
            ++m_first;
        qsizetype end = 0;
        while (end < common - m_first && fromEnd(m_before, end).id == fromEnd(m_after, end).id)
            ++end;
        m_last = m_after.size() - end;
        for (qsizetype row = m_first; row < m_before.size() - end; ++row)
            m_middle.push_back(&m_before.at(row));
        for (qsizetype row = 0; row < m_first; ++row)
            change(row, m_before.at(row));
        if (!removeMissing() || !insertAndMove())
            return false;
        const qsizetype shift = m_after.size() - m_before.size();
        for (qsizetype row = m_last; row < m_after.size(); ++row)
            change(row, m_before.at(row - shift));
        return true;
    }

    bool removeMissing()
    {
        IdCounts wanted;
        for (qsizetype row = m_first; row < m_last; ++row)
            ++wanted[m_after.at(row).id];
        const Rows old = std::exchange(m_middle, {});
        for (auto record = old.begin(); record != old.end(); ++record) {
            const auto kept = std::find_if(
                record, old.end(), [&](const Record *each) { return wanted[each->id]-- > 0; });
            if (kept != record) {
                const auto row = m_first + qsizetype(m_middle.size());
                addStep({Kind::remove, row, kept - record});
            }
            if (kept == old.end())
                break;
            m_middle.push_back(*kept);
            record = kept;
        }
        return hasFewSteps();
    }

    bool insertAndMove()
    {
        IdCounts kept;
        for (const Record *record : m_middle)
            ++kept[record->id];
        for (qsizetype row = m_first; row < m_last && hasFewSteps(); ++row) {
            const qsizetype firstNew = row;
            while (row < m_last && kept[m_after.at(row).id]-- <= 0)
                ++row;
            if (row > firstNew)
                addStep({Kind::insert, firstNew, row - firstNew});
            if (row < m_last)
                takeKept(row);
        }
        return hasFewSteps();
    }

    /// The kept records that have no row yet are in m_middle, from m_taken on.
    void takeKept(qsizetype row)
    {
        const auto begin = m_middle.begin() + m_taken;
        const auto found = std::ranges::find(begin, m_middle.end(), m_after.at(row).id,
                                             [](const Record *each) { return each->id; });
        if (found != begin)
            addStep({Kind::move, row + (found - begin), row});
        std::rotate(begin, found, found + 1);
        change(row, *m_middle[std::size_t(m_taken++)]);
    }

    void change(qsizetype row, const Record &old)
    {
        if (old == m_after.at(row))
            return;
        ++m_changes;
        ListStep *last = m_steps.empty() ? nullptr : &m_steps.back();
        const bool follows = last && last->kind == Kind::change;
        // Beyond this number, rows in between are read again, although they have not changed.
        if (follows && (last->row + last->count == row || m_changes > maximumSteps))
            last->count = row + 1 - last->row;
        else
            m_steps.push_back({Kind::change, row, 1});
    }

    void addStep(const ListStep &step)
    {
        m_steps.push_back(step);
        ++m_otherSteps;
    }

    bool hasFewSteps() const { return m_otherSteps <= maximumSteps; }

    static const Record &fromEnd(const QList<Record> &list, qsizetype row)
    {
        return list.at(list.size() - 1 - row);
    }

    const QList<Record> &m_before;
    const QList<Record> &m_after;
    /// The rows of the new list that are not those of the old one at the beginning or the end.
    qsizetype m_first = 0;
    qsizetype m_last = 0;
    Rows m_middle;
    qsizetype m_taken = 0;
    std::vector<ListStep> m_steps;
    int m_changes = 0;
    int m_otherSteps = 0;
};

/// Compares two lists. If they are equal, the result has one of them twice, so that the next
/// comparison ends at once.
template <typename Record>
ListUpdate<Record> listUpdate(const QList<Record> &before, const QList<Record> &after)
{
    ListSteps steps = std::vector<ListStep>();
    if (!before.isSharedWith(after))
        steps = ListComparison<Record>::steps(before, after);
    return {before, steps && steps->empty() ? before : after, std::move(steps)};
}

} // namespace tolvane
