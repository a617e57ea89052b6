// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAbstractListModel>
#include <QtCore/QHash>

#include <algorithm>
#include <span>

namespace tolvane {

/// A list model of records. A new list is applied as the fewest insertions, removals, moves and
/// changes. Records are matched by their `id`, so that a view keeps its position and rebuilds only
/// the rows that differ. A record that is listed twice gets two rows. Main thread.
template <typename Record>
class RecordListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_records.size());
    }

protected:
    const QList<Record> &records() const { return m_records; }

    void replace(const QList<Record> &records) { replaceAfter(0, records); }
    /// Keeps the first `kept` rows and replaces all rows after them.
    void replaceAfter(qsizetype kept, const QList<Record> &records);

private:
    using IdCounts = QHash<QString, int>;
    /// A part of a list, which is not copied.
    using Part = std::span<const Record>;

    /// Applying a shuffled list takes one step for each record, and each step searches all others.
    /// Beyond this number of steps the model is reset instead.
    static constexpr int maximumSteps = 200;

    qsizetype updateCommonPrefix(qsizetype kept, const QList<Record> &records);
    qsizetype updateCommonSuffix(const QList<Record> &records, qsizetype most);
    bool removeMissing(Part middle, qsizetype first, qsizetype last);
    bool insertAndMove(Part middle, qsizetype first, qsizetype countAfter);
    void insert(qsizetype row, Part records);
    void remove(qsizetype row, qsizetype count);
    void move(qsizetype from, qsizetype to);
    void change(qsizetype row, const Record &record);
    qsizetype indexOf(const QString &id, qsizetype from) const;
    static IdCounts countIds(Part records);

    QList<Record> m_records;
};

template <typename Record>
void RecordListModel<Record>::replaceAfter(qsizetype kept, const QList<Record> &records)
{
    if (m_records.isEmpty() && !records.isEmpty()) {
        beginInsertRows({}, 0, int(records.size() - 1));
        m_records = records;
        endInsertRows();
        return;
    }
    // Most new lists differ from the old one at one end only, if at all.
    const qsizetype beginning = updateCommonPrefix(kept, records);
    const qsizetype first = kept + beginning;
    const qsizetype end =
        updateCommonSuffix(records, std::min(m_records.size() - first, records.size() - beginning));
    const qsizetype last = m_records.size() - end;
    const Part middle = Part(records).subspan(std::size_t(beginning),
                                              std::size_t(records.size() - end - beginning));
    if (last == first) {
        insert(first, middle);
    } else if (middle.empty()) {
        remove(first, last - first);
    } else if (!removeMissing(middle, first, last) || !insertAndMove(middle, first, end)) {
        beginResetModel();
        m_records.remove(kept, m_records.size() - kept);
        m_records += records;
        endResetModel();
    }
}

template <typename Record>
qsizetype RecordListModel<Record>::updateCommonPrefix(qsizetype kept, const QList<Record> &records)
{
    const qsizetype most = std::min(m_records.size() - kept, records.size());
    qsizetype count = 0;
    for (; count < most && m_records.at(kept + count).id == records.at(count).id; ++count)
        change(kept + count, records.at(count));
    return count;
}

template <typename Record>
qsizetype RecordListModel<Record>::updateCommonSuffix(const QList<Record> &records, qsizetype most)
{
    qsizetype count = 0;
    for (; count < most; ++count) {
        const qsizetype row = m_records.size() - 1 - count;
        const Record &record = records.at(records.size() - 1 - count);
        if (m_records.at(row).id != record.id)
            break;
        change(row, record);
    }
    return count;
}

template <typename Record>
bool RecordListModel<Record>::removeMissing(Part middle, qsizetype first, qsizetype last)
{
    IdCounts wanted = countIds(middle);
    int steps = 0;
    for (qsizetype row = first; row < last;) {
        qsizetype end = row;
        while (end < last && wanted[m_records.at(end).id]-- <= 0)
            ++end;
        if (end == row) {
            ++row;
            continue;
        }
        if (++steps > maximumSteps)
            return false;
        remove(row, end - row);
        last -= end - row;
        // The row that ended the run has been counted already.
        ++row;
    }
    return true;
}

template <typename Record>
bool RecordListModel<Record>::insertAndMove(Part middle, qsizetype first, qsizetype countAfter)
{
    IdCounts kept = countIds(Part(m_records).subspan(
        std::size_t(first), std::size_t(m_records.size() - first - countAfter)));
    int steps = 0;
    for (std::size_t at = 0; at < middle.size();) {
        std::size_t end = at;
        while (end < middle.size() && kept[middle[end].id]-- <= 0)
            ++end;
        insert(first + qsizetype(at), middle.subspan(at, end - at));
        steps += end > at;
        at = end;
        if (at < middle.size()) {
            const qsizetype row = first + qsizetype(at);
            const qsizetype old = indexOf(middle[at].id, row);
            if (old != row)
                move(old, row);
            steps += old != row;
            change(row, middle[at++]);
        }
        if (steps > maximumSteps)
            return false;
    }
    return true;
}

template <typename Record>
void RecordListModel<Record>::insert(qsizetype row, Part records)
{
    if (records.empty())
        return;
    const auto count = qsizetype(records.size());
    beginInsertRows({}, int(row), int(row + count - 1));
    m_records.insert(row, count, Record());
    std::copy(records.begin(), records.end(), m_records.begin() + row);
    endInsertRows();
}

template <typename Record>
void RecordListModel<Record>::remove(qsizetype row, qsizetype count)
{
    beginRemoveRows({}, int(row), int(row + count - 1));
    m_records.remove(row, count);
    endRemoveRows();
}

template <typename Record>
void RecordListModel<Record>::move(qsizetype from, qsizetype to)
{
    beginMoveRows({}, int(from), int(from), {}, int(to));
    m_records.move(from, to);
    endMoveRows();
}

template <typename Record>
void RecordListModel<Record>::change(qsizetype row, const Record &record)
{
    if (m_records.at(row) == record)
        return;
    m_records[row] = record;
    Q_EMIT dataChanged(index(int(row)), index(int(row)));
}

template <typename Record>
qsizetype RecordListModel<Record>::indexOf(const QString &id, qsizetype from) const
{
    const auto found = std::find_if(m_records.begin() + from, m_records.end(),
                                    [&id](const Record &record) { return record.id == id; });
    return found - m_records.begin();
}

template <typename Record>
auto RecordListModel<Record>::countIds(Part records) -> IdCounts
{
    IdCounts count;
    for (const Record &record : records)
        ++count[record.id];
    return count;
}

} // namespace tolvane
