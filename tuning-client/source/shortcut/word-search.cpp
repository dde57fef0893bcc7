#include "tuning-client/source/shortcut/word-search.h"

#include <QStringView>

#include <algorithm>
#include <array>
#include <utility>

namespace
{
enum Grade
{
    Whole,
    Beginning,
    Inner,
    Misspelt,
    None
};

constexpr int shortestMisspelt = 3; // Below that nearly everything is one letter away,
constexpr int shortestBegun = 4;    // and one more for the beginning of a word.

QStringList wordsOf(const QString& text)
{
    QString spaced = text.toLower();
    for (auto& letter : spaced)
        if (!letter.isLetterOrNumber())
            letter = ' ';
    return spaced.split(' ', Qt::SkipEmptyParts);
}

/// Words with a digit are whole in it: "wdr4", "2dnr".
QString initialsOf(const QStringList& words)
{
    QString initials;
    for (const auto& word : words)
        initials += word.front().isDigit() ? word : QString(word.front());
    return initials;
}

/// One letter replaced, inserted, left out, or two neighbours swapped.
bool isOneEditAway(QStringView a, QStringView b)
{
    int same = 0;
    while (same < a.size() && same < b.size() && a[same] == b[same])
        ++same;
    a = a.mid(same);
    b = b.mid(same);
    if (a.isEmpty() || b.isEmpty())
        return a.size() + b.size() == 1;
    return a.mid(1) == b.mid(1) || a.mid(1) == b || a == b.mid(1) ||
           (a.size() > 1 && b.size() > 1 && a[0] == b[1] && a[1] == b[0] && a.mid(2) == b.mid(2));
}

bool isMisspelt(const QString& wanted, const QString& word)
{
    if (wanted.size() < shortestMisspelt)
        return false;
    for (int size = wanted.size() - 1; size <= qMin(wanted.size() + 1, word.size()); ++size)
        if ((size == word.size() || wanted.size() >= shortestBegun) &&
            isOneEditAway(wanted, QStringView(word).left(size)))
            return true;
    return false;
}
} // namespace

namespace shortcut
{
void WordSearch::wordAdd(QVector<Use>& path, const Word& word, bool isInLast)
{
    auto& known = numbers[word.isInitials];
    if (!known.contains(word.text))
    {
        known.insert(word.text, words.size());
        words.append(word);
    }
    path.append({known.value(word.text), isInLast});
}

void WordSearch::add(const QStringList& path)
{
    QVector<Use> uses;
    for (int i = 0; i < path.size(); ++i)
    {
        const bool isLast = i == path.size() - 1;
        const auto titleWords = wordsOf(path[i]);
        for (const auto& word : titleWords)
            wordAdd(uses, {word, false}, isLast);
        if (titleWords.size() > 1)
            wordAdd(uses, {initialsOf(titleWords), true}, isLast);
    }
    paths.append(uses);
}

QVector<int> WordSearch::gradesOf(const QString& wanted) const
{
    QVector<int> grades;
    for (const auto& word : words)
    {
        int grade = None;
        if (word.text == wanted)
            grade = Whole;
        else if (word.text.startsWith(wanted))
            grade = Beginning;
        else if (!word.isInitials && word.text.contains(wanted))
            grade = Inner;
        else if (!word.isInitials && isMisspelt(wanted, word.text))
            grade = Misspelt;
        grades.append(grade);
    }
    return grades;
}

QVector<int> WordSearch::find(const QString& text) const
{
    QVector<QVector<int>> gradesOfWanted;
    for (const auto& wanted : wordsOf(text))
        gradesOfWanted.append(gradesOf(wanted));

    /// The worst word's grade, all words' grades and places, the path's length, its number.
    using Rank = std::array<int, 4>;
    QVector<Rank> found;
    for (int i = 0; i < paths.size() && !gradesOfWanted.isEmpty(); ++i)
    {
        Rank rank{Whole, 0, paths[i].size(), i};
        for (const auto& grades : qAsConst(gradesOfWanted))
        {
            auto best = std::make_pair(int(None), 1);
            for (const auto& use : paths[i])
                best = std::min(best, std::make_pair(grades[use.word], int(!use.isInLast)));
            rank[0] = qMax(rank[0], best.first);
            rank[1] += 2 * best.first + best.second;
        }
        if (rank[0] != None)
            found.append(rank);
    }
    std::sort(found.begin(), found.end());
    QVector<int> order;
    for (const auto& rank : qAsConst(found))
        order.append(rank[3]);
    return order;
}
} // namespace shortcut
