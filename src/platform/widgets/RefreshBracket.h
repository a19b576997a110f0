#pragma once
// BeginRefresh / EndRefresh of a control: a batch of changes is painted once, when the
// outermost bracket closes; an unmatched end changes nothing.

class QWidget;

namespace zlx {

class RefreshBracket {
public:
    explicit RefreshBracket(QWidget& widget) : m_widget(widget) {}
    void Begin();
    void End();

private:
    QWidget& m_widget;
    int m_depth = 0;
};

} // namespace zlx
