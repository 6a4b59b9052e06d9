#pragma once

#include <QStringList>

namespace app {

/// The documents that were open last, newest first, as the user's settings keep them.
class RecentDocuments {
public:
    static QStringList Paths();
    /// Puts a document first.
    static void Add(const QString& path);
    static void Remove(const QString& path);
    static void Clear();
};

}  // namespace app
