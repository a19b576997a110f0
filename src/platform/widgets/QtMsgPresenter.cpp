#include "platform/widgets/QtMsgPresenter.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

namespace zlx {

namespace {

QStyle::StandardPixmap PixmapFor(std::int32_t icon) {
    switch (icon) {
    case MsgIconError:
        return QStyle::SP_MessageBoxCritical;
    case MsgIconQuestion:
        return QStyle::SP_MessageBoxQuestion;
    case MsgIconWarning:
        return QStyle::SP_MessageBoxWarning;
    default:
        return QStyle::SP_MessageBoxInformation;
    }
}

void AddButton(QDialog* dialog, QDialogButtonBox* box, const QString& caption, int answer,
               bool isDefault) {
    QPushButton* button = box->addButton(caption, QDialogButtonBox::ActionRole);
    button->setDefault(isDefault);
    QObject::connect(button, &QPushButton::clicked, dialog,
                     [dialog, answer] { dialog->done(answer); });
}

void AddButtons(QDialog* dialog, QDialogButtonBox* box, const MsgRequest& request) {
    const MsgCaptions& c = request.captions;
    if (request.buttons == MsgButtonsYesNo) {
        AddButton(dialog, box, c.yes, MsgAnswerAffirmative, true);
        AddButton(dialog, box, c.no, MsgAnswerNegative, false);
    } else if (request.buttons == MsgButtonsRetryCancel) {
        AddButton(dialog, box, c.retry, MsgAnswerAffirmative, true);
        AddButton(dialog, box, c.cancel, MsgAnswerNegative, false);
    } else if (!request.checkText.isEmpty()) {
        AddButton(dialog, box, c.ok, MsgAnswerAffirmative, false);
        AddButton(dialog, box, c.cancel, MsgAnswerNegative, true);
    } else {
        AddButton(dialog, box, c.ok, MsgAnswerAffirmative, true);
    }
}

// A confirmation is accepted only with its check box ticked.
void AddConfirmation(QDialog* dialog, QVBoxLayout* layout, QDialogButtonBox* box,
                     const QString& checkText) {
    auto* check = new QCheckBox(MsgMarkupToPlainText(checkText), dialog);
    check->setObjectName(QStringLiteral("confirmation"));
    layout->insertWidget(1, check);
    QAbstractButton* accept = box->buttons().constFirst();
    accept->setEnabled(false);
    QObject::connect(check, &QCheckBox::toggled, accept, &QAbstractButton::setEnabled);
}

} // namespace

QDialog* QtMsgPresenter::BuildDialog(const MsgRequest& request) {
    auto* dialog = new QDialog;
    dialog->setWindowTitle(request.title);
    auto* layout = new QVBoxLayout(dialog);
    auto* row = new QHBoxLayout;
    auto* icon = new QLabel(dialog);
    icon->setPixmap(dialog->style()->standardIcon(PixmapFor(request.icon)).pixmap(32, 32));
    auto* text = new QLabel(MsgMarkupToRichText(request.text), dialog);
    text->setObjectName(QStringLiteral("text"));
    text->setTextFormat(Qt::RichText);
    if (!request.fontName.isEmpty()) text->setFont(QFont(request.fontName, request.fontSize));
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(text, 1);
    layout->addLayout(row);
    auto* buttons = new QDialogButtonBox(dialog);
    AddButtons(dialog, buttons, request);
    layout->addWidget(buttons);
    if (!request.checkText.isEmpty()) AddConfirmation(dialog, layout, buttons, request.checkText);
    if (request.timeoutMs > 0)
        QTimer::singleShot(request.timeoutMs, dialog,
                           [dialog] { dialog->done(MsgAnswerAffirmative); });
    // Closing the window counts as the negative answer, or OK when OK is the only one.
    dialog->setProperty("escapeAnswer",
                        buttons->buttons().size() == 1 ? MsgAnswerAffirmative : MsgAnswerNegative);
    return dialog;
}

std::int32_t QtMsgPresenter::Present(const MsgRequest& request) {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return ConsoleMsgPresenter().Present(request);
    QDialog* dialog = BuildDialog(request);
    int answer = dialog->exec();
    if (answer == QDialog::Rejected) answer = dialog->property("escapeAnswer").toInt();
    delete dialog;
    return answer;
}

} // namespace zlx
