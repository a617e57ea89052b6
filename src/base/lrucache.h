// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QHash>

#include <limits>
#include <list>

namespace tolvane {

/// A map with limits. The least recently used entries are removed first. Not thread-safe.
template <typename Key, typename Value>
class LruCache
{
public:
    struct Limits
    {
        qint64 count = std::numeric_limits<qint64>::max();
        qint64 cost = std::numeric_limits<qint64>::max();
    };

    explicit LruCache(Limits limits)
        : m_limits(limits)
    {
    }

    /// Null without an entry; valid until the next insertion or removal.
    const Value *object(const Key &key)
    {
        const auto found = m_index.constFind(key);
        if (found == m_index.cend())
            return nullptr;
        m_entries.splice(m_entries.begin(), m_entries, *found);
        return &m_entries.front().value;
    }

    /// Replaces the key's entry. A value whose cost alone exceeds the limit is not stored.
    void insert(const Key &key, Value value, qint64 cost)
    {
        remove(key);
        if (cost > m_limits.cost)
            return;
        m_entries.push_front({key, std::move(value), cost});
        m_index.insert(key, m_entries.begin());
        m_cost += cost;
        while (m_cost > m_limits.cost || count() > m_limits.count)
            remove(Key(m_entries.back().key));
    }

    void remove(const Key &key)
    {
        const auto found = m_index.constFind(key);
        if (found == m_index.cend())
            return;
        m_cost -= (*found)->cost;
        m_entries.erase(*found);
        m_index.erase(found);
    }

    void clear()
    {
        m_index.clear();
        m_entries.clear();
        m_cost = 0;
    }

    qint64 count() const { return m_index.size(); }
    qint64 cost() const { return m_cost; }

private:
    struct Entry
    {
        Key key;
        Value value;
        qint64 cost;
    };

    const Limits m_limits;
    qint64 m_cost = 0;
    std::list<Entry> m_entries; // Most recently used first.
    QHash<Key, typename std::list<Entry>::iterator> m_index;
};

} // namespace tolvane
