// Items under unique keys, in the order of adding. A look-up by key takes constant time.
#pragma once

#include "support/Error.h"

#include <algorithm>
#include <memory>
#include <QHash>
#include <QString>
#include <vector>

namespace document {

template <typename T>
class KeyedCollection {
public:
    // Owns the item. Error 457 for a key that is taken.
    T &Add(const QString &key, std::unique_ptr<T> item) {
        if (byKey_.contains(key)) support::Raise(support::kErrKeyInUse, QStringLiteral("Collection"));
        entries_.push_back({key, std::move(item)});
        byKey_.insert(key, entries_.back().item.get());
        return *entries_.back().item;
    }
    // Error 5 for an unknown key.
    T &Item(const QString &key) const {
        if (T *item = Find(key)) return *item;
        support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("Collection"));
    }
    // By its position from 1; error 9 for one that isn't there.
    T &Item(int index) const { return *entries_[Checked(index)].item; }
    T *Find(const QString &key) const { return byKey_.value(key, nullptr); }

    void Remove(const QString &key) {
        T &item = Item(key);
        std::erase_if(entries_, [&](const Entry &entry) { return entry.item.get() == &item; });
        byKey_.remove(key);
    }
    void Remove(int index) { Remove(QString(entries_[Checked(index)].key)); }

    int Count() const { return static_cast<int>(entries_.size()); }
    void Clear() {
        byKey_.clear();
        entries_.clear();
    }

private:
    struct Entry {
        QString key;
        std::unique_ptr<T> item;
    };

    std::size_t Checked(int index) const {
        if (index < 1 || index > Count())
            support::Raise(support::kErrSubscriptOutOfRange, QStringLiteral("Collection"));
        return static_cast<std::size_t>(index - 1);
    }

    std::vector<Entry> entries_;
    QHash<QString, T *> byKey_;

public:
    // Walks in the order of adding. Adding and removing make iterators invalid.
    class Iterator {
    public:
        explicit Iterator(typename std::vector<Entry>::const_iterator at) : at_(at) {}
        T &operator*() const { return *at_->item; }
        Iterator &operator++() { return ++at_, *this; }
        bool operator!=(const Iterator &other) const { return at_ != other.at_; }

    private:
        typename std::vector<Entry>::const_iterator at_;
    };
    Iterator begin() const { return Iterator(entries_.begin()); }
    Iterator end() const { return Iterator(entries_.end()); }
};

// What the four pools of a map share. An item is named by its key or by its position from 1: an unknown key
// is error 5 "Invalid procedure call or argument", a position that isn't there error 9 "Subscript out of
// range", a key that is taken error 457.
template <typename T>
class Pool {
public:
    T &Item(const QString &key) const { return items_.Item(key); }
    T &Item(int index) const { return items_.Item(index); }
    void Remove(const QString &key) { items_.Remove(key); }
    void Remove(int index) { items_.Remove(index); }
    int count() const { return items_.Count(); }
    void Clear() { items_.Clear(); }
    // The enumeration: items in the order of adding.
    const KeyedCollection<T> &NewEnum() const { return items_; }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

protected:
    KeyedCollection<T> items_;
};

} // namespace document
