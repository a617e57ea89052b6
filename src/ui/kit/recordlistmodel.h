// SPDX-License-Identifier: MIT
#pragma once

#include "base/listupdate.h"
#include "platform/destroyonworker.h"

#include <QtCore/QAbstractListModel>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tolvane {

/// A list model of records. A new list is applied as the fewest insertions, removals, moves and
/// changes. Records are matched by their `id`, so that a view keeps its position and rebuilds only
/// the rows that differ. A record that is listed twice gets two rows. Main thread.
template <typename Record>
class RecordListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;
    ~RecordListModel() override;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        if (parent.isValid())
            return 0;
        return m_changingRows ? int(m_changingRows->size()) : int(m_records.size());
    }

protected:
    const Record &record(int row) const
    {
        return m_changingRows ? *m_changingRows->at(std::size_t(row)) : m_records.at(row);
    }
    const QList<Record> &records() const { return m_records; }

    /// False if the records are equal to the current ones.
    bool replace(const QList<Record> &records)
    {
        return apply(records, listUpdate(m_records, records).steps);
    }
    /// Replaces the records, with the steps from the current ones to them. No record is copied or
    /// compared. False if there are no steps.
    bool apply(const QList<Record> &records, const ListSteps &steps);
    void append(const QList<Record> &records);

private:
    using Rows = std::vector<const Record *>;

    void exchange(const QList<Record> &records);
    void take(const ListStep &step, const QList<Record> &records);
    void insert(const ListStep &step, const QList<Record> &records);
    void remove(const ListStep &step);
    void move(const ListStep &step);
    void change(const ListStep &step, const QList<Record> &records);

    QList<Record> m_records;
    /// The rows between two steps: records of the old and of the new list, which are not copied.
    std::optional<Rows> m_changingRows;
};

template <typename Record>
RecordListModel<Record>::~RecordListModel()
{
    exchange({});
}

template <typename Record>
bool RecordListModel<Record>::apply(const QList<Record> &records, const ListSteps &steps)
{
    if (!steps) {
        this->beginResetModel();
        exchange(records);
        this->endResetModel();
        return true;
    }
    if (!steps->empty()) {
        Rows &rows = m_changingRows.emplace();
        rows.reserve(std::size_t(std::max(m_records.size(), records.size())));
        for (const Record &record : std::as_const(m_records))
            rows.push_back(&record);
        for (const ListStep &step : *steps)
            take(step, records);
    }
    m_changingRows.reset();
    exchange(records);
    return !steps->empty();
}

template <typename Record>
void RecordListModel<Record>::exchange(const QList<Record> &records)
{
    QList<Record> replaced = std::exchange(m_records, records);
    if (replaced.size() > smallList && !replaced.isSharedWith(records))
        destroyOnWorker(std::move(replaced));
}

template <typename Record>
void RecordListModel<Record>::append(const QList<Record> &records)
{
    if (records.isEmpty())
        return;
    const auto row = int(m_records.size());
    this->beginInsertRows({}, row, row + int(records.size()) - 1);
    m_records += records;
    this->endInsertRows();
}

template <typename Record>
void RecordListModel<Record>::take(const ListStep &step, const QList<Record> &records)
{
    switch (step.kind) {
    case ListStep::Kind::insert:
        insert(step, records);
        break;
    case ListStep::Kind::remove:
        remove(step);
        break;
    case ListStep::Kind::move:
        move(step);
        break;
    case ListStep::Kind::change:
        change(step, records);
        break;
    }
}

template <typename Record>
void RecordListModel<Record>::insert(const ListStep &step, const QList<Record> &records)
{
    this->beginInsertRows({}, int(step.row), int(step.row + step.count - 1));
    Rows inserted;
    inserted.reserve(std::size_t(step.count));
    for (qsizetype row = step.row; row < step.row + step.count; ++row)
        inserted.push_back(&records.at(row));
    m_changingRows->insert(m_changingRows->begin() + step.row, inserted.begin(), inserted.end());
    this->endInsertRows();
}

template <typename Record>
void RecordListModel<Record>::remove(const ListStep &step)
{
    this->beginRemoveRows({}, int(step.row), int(step.row + step.count - 1));
    const auto first = m_changingRows->begin() + step.row;
    m_changingRows->erase(first, first + step.count);
    this->endRemoveRows();
}

template <typename Record>
void RecordListModel<Record>::move(const ListStep &step)
{
    this->beginMoveRows({}, int(step.row), int(step.row), {}, int(step.count));
    const auto begin = m_changingRows->begin();
    std::rotate(begin + step.count, begin + step.row, begin + step.row + 1);
    this->endMoveRows();
}

template <typename Record>
void RecordListModel<Record>::change(const ListStep &step, const QList<Record> &records)
{
    for (qsizetype row = step.row; row < step.row + step.count; ++row)
        (*m_changingRows)[std::size_t(row)] = &records.at(row);
    Q_EMIT this->dataChanged(this->index(int(step.row)),
                             this->index(int(step.row + step.count - 1)));
}

} // namespace tolvane
