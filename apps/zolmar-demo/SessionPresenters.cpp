#include "SessionPresenters.h"

#include "platform/widgets/QtMsgPresenter.h"
#include "platform/widgets/SearchGridWindow.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPixmap>
#include <cstdio>
#include <memory>

namespace zlx::demo {

namespace {

void Shoot(QWidget& window, const QDir& folder, const QString& file) {
    window.show();
    QApplication::processEvents();
    window.grab().save(folder.filePath(file));
    PrintLine(QStringLiteral("  captura %1").arg(file));
}

} // namespace

void PrintLine(const QString& text) {
    std::fputs(text.toUtf8().constData(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

std::int32_t SessionMsgPresenter::Present(const MsgRequest& request) {
    ++m_count;
    PrintLine(QStringLiteral("  mensaje \"%1\": %2")
                  .arg(request.title, MsgMarkupToPlainText(request.text).replace(u'\n', u' ')));
    if (!m_nextShot.isEmpty()) {
        std::unique_ptr<QDialog> dialog(QtMsgPresenter::BuildDialog(request));
        Shoot(*dialog, m_folder, m_nextShot);
        m_nextShot.clear();
    }
    if (m_answers.empty()) return MsgAnswerAffirmative;
    const std::int32_t answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

std::optional<std::int32_t> SessionSearchGrid::Present(const SearchGridRequest& request) {
    SearchGridWindow window(request);
    window.resize(720, 320);
    if (window.SearchBox()) window.SearchBox()->setText(m_search);
    PrintLine(QStringLiteral("  ventana \"%1\": se escribe \"%2\"").arg(request.title, m_search));
    if (!m_nextShot.isEmpty()) Shoot(window, m_folder, m_nextShot);
    m_nextShot.clear();
    m_search.clear();
    return window.SelectedMatrixRow();
}

} // namespace zlx::demo
