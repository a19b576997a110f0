#include "script/ScriptFicha.h"

#include "binding/cBinding.h"
#include "cursor/cFichaDB.h"
#include "script/ScriptArgs.h"
#include "script/ScriptForm.h"

namespace zlx {

ScriptFicha::ScriptFicha(ScriptForm& form) : m_form(&form), m_ctl(new CtlFicha(&form)) {
    m_ctl->setObjectName(QStringLiteral("CtlFicha1"));
    m_ctl->setGeometry(0, 0, 660, 40);
    m_ctl->SetEvents(&m_events);
}

ScriptFicha::ScriptFicha(QWidget& form, CtlFicha& toolbar, I_CtlFichaEvents& formHandlers)
    : m_form(&form), m_ctl(&toolbar), m_formHandlers(&formHandlers) {
    m_events.ForwardTo(m_formHandlers);
    m_ctl->SetEvents(&m_events);
}

ScriptFicha::~ScriptFicha() {
    if (m_ctl) m_ctl->SetEvents(m_formHandlers);
}

CtlFicha& ScriptFicha::Ctl() const {
    if (!m_ctl) throw ScriptError(QStringLiteral("the form of this CtlFicha no longer exists"));
    return *m_ctl;
}

QList<QWidget*> ScriptFicha::BoundControls() const {
    QList<QWidget*> bound;
    if (!m_form) return bound;
    for (QWidget* control : m_form->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (control != m_ctl && !control->property("Campo").toString().isEmpty()) bound << control;
    return bound;
}

QWidget* ScriptFicha::FirstControl() const {
    const QList<QWidget*> bound = BoundControls();
    return bound.isEmpty() ? nullptr : bound.first();
}

void ScriptFicha::BindControls(const cFichaDBPtr& cursor) {
    const cBindingPtr binding = Ctl().BindingControls();
    binding->Init(m_form, cursor->oCn());
    for (QWidget* control : BoundControls()) {
        control->setProperty("Alias", cursor->Table());
        binding->Add(control, cursor);
    }
}

} // namespace zlx
