#pragma once
// The message and search-grid presenters of the scripted session: each message and grid is
// built as the real window, written to a PNG file when the session asks for it, printed, and
// answered from the session's script.

#include "platform/companion/MsgPresenter.h"
#include "platform/companion/SearchGrid.h"

#include <QDir>
#include <deque>

namespace zlx::demo {

// One line of the session's report on standard output, written at once.
void PrintLine(const QString& text);

class SessionMsgPresenter : public MsgPresenter {
public:
    explicit SessionMsgPresenter(QDir folder) : m_folder(std::move(folder)) {}
    std::int32_t Present(const MsgRequest& request) override;

    // The next message is written to this file (in the session's folder).
    void ShotNext(const QString& cFile) { m_nextShot = cFile; }
    // The next answers, in order; when they run out the answer is the affirmative one.
    void QueueAnswer(std::int32_t nAnswer) { m_answers.push_back(nAnswer); }
    int Count() const { return m_count; }

private:
    QDir m_folder;
    QString m_nextShot;
    std::deque<std::int32_t> m_answers;
    int m_count = 0;
};

class SessionSearchGrid : public SearchGridPresenter {
public:
    explicit SessionSearchGrid(QDir folder) : m_folder(std::move(folder)) {}
    std::optional<std::int32_t> Present(const SearchGridRequest& request) override;

    // The next grid is written to cFile after typing cSearch into its search box, and the
    // row reached is picked.
    void PickNext(const QString& cSearch, const QString& cFile = {}) {
        m_search = cSearch;
        m_nextShot = cFile;
    }

private:
    QDir m_folder;
    QString m_search;
    QString m_nextShot;
};

} // namespace zlx::demo
