#include "platform/widgets/btn.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <QVBoxLayout>

btn::btn(QWidget* parent)
    : QGroupBox(parent), m_none(new QRadioButton(this)), m_group(new QButtonGroup(this)),
      m_layout(new QVBoxLayout(this)) {
    m_none->hide();
    m_group->addButton(m_none, 0);
    m_none->setChecked(true);
    connect(m_group, &QButtonGroup::idClicked, this, [this](int k) {
        m_changed = true;
        emit Click(k);
    });
}

void btn::setNumOptions(int count) {
    count = std::max(0, count);
    while (NumOptions() > count) {
        QRadioButton* last = m_options.back();
        if (last->isChecked()) m_none->setChecked(true);
        m_group->removeButton(last);
        delete last;
        m_options.pop_back();
        m_preEnabledOptions.pop_back();
    }
    while (NumOptions() < count) {
        const int k = NumOptions() + 1;
        auto* option = new QRadioButton(QStringLiteral("Opción %1").arg(k), this);
        option->setObjectName(QStringLiteral("opt%1").arg(k));
        m_group->addButton(option, k);
        m_layout->addWidget(option);
        m_options.push_back(option);
        m_preEnabledOptions.push_back(true);
    }
}

QVariant btn::Value() const {
    return std::max(0, m_group->checkedId());
}

void btn::setValue(const QVariant& value) {
    const int k = value.toInt();
    if (QRadioButton* option = Option(k))
        option->setChecked(true);
    else
        m_none->setChecked(true);
    m_changed = true;
}

QRadioButton* btn::Option(int k) const {
    if (k < 1 || k > NumOptions()) return nullptr;
    return m_options[static_cast<std::size_t>(k - 1)];
}

QString btn::OptCaption(int k) const {
    const QRadioButton* option = Option(k);
    return option ? option->text() : QString();
}

void btn::OptCaption(int k, const QString& caption) {
    if (QRadioButton* option = Option(k)) option->setText(caption);
}

bool btn::OptEnabled(int k) const {
    const QRadioButton* option = Option(k);
    return option && option->isEnabled();
}

void btn::OptEnabled(int k, bool enabled) {
    if (QRadioButton* option = Option(k)) option->setEnabled(enabled);
}

bool btn::OptionPreEnabled(int k) const {
    return Option(k) && m_preEnabledOptions[static_cast<std::size_t>(k - 1)];
}

void btn::OptionPreEnabled(int k, bool enabled) {
    if (Option(k)) m_preEnabledOptions[static_cast<std::size_t>(k - 1)] = enabled;
}

void btn::BeginRefresh() {
    m_refresh.Begin();
}

void btn::EndRefresh() {
    m_refresh.End();
}
