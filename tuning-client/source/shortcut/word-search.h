#pragma once

#include <QHash>
#include <QStringList>
#include <QVector>

namespace shortcut
{
/// Finds paths of titles by a few letters of their words: whole words and beginnings first, the initials of a title
/// count among these ("wb"), then parts of words, then words with one letter wrong, missing, too many or swapped.
class WordSearch
{
public:
    /// Adds a path, the outermost title first. Paths are numbered in the order in which they come.
    void add(const QStringList& path);

    /// The numbers of the paths that have all words of `text`, the best ones first: those that have them in their last
    /// title, then short ones, then in the order in which they came. None for a text without a word.
    QVector<int> find(const QString& text) const;

private:
    struct Word
    {
        QString text;
        bool isInitials;
    };

    struct Use
    {
        int word;
        bool isInLast; ///< of the path's titles
    };

    void wordAdd(QVector<Use>& path, const Word& word, bool isInLast);
    QVector<int> gradesOf(const QString& wanted) const;

    QVector<Word> words; ///< each one once, since paths share most of them
    QHash<QString, int> numbers[2];
    QVector<QVector<Use>> paths;
};
} // namespace shortcut
