#pragma once
// Where a kind of user-facing presenter (message boxes, search grids) is chosen: the one
// installed for the process, else the default a user-interface library registered, else a
// fallback that writes to the console. Tests install recording presenters for a scope.

#include <utility>

namespace zlx {

template <class Presenter> class PresenterSlot {
public:
    constexpr explicit PresenterSlot(Presenter& fallback) : m_fallback(fallback) {}
    Presenter& Current() const {
        if (m_installed) return *m_installed;
        return m_default ? *m_default : m_fallback;
    }
    // Installs a presenter (nullptr removes it); answers the previous one.
    Presenter* Install(Presenter* presenter) { return std::exchange(m_installed, presenter); }
    void RegisterDefault(Presenter* presenter) { m_default = presenter; }

private:
    Presenter& m_fallback;
    Presenter* m_installed = nullptr;
    Presenter* m_default = nullptr;
};

// Installs a presenter for the lifetime of this object through the kind's install function.
template <class Presenter, Presenter* (*Install)(Presenter*)> class ScopedPresenter {
public:
    explicit ScopedPresenter(Presenter& presenter) : m_previous(Install(&presenter)) {}
    ~ScopedPresenter() { Install(m_previous); }
    ScopedPresenter(const ScopedPresenter&) = delete;
    ScopedPresenter& operator=(const ScopedPresenter&) = delete;

private:
    Presenter* m_previous;
};

} // namespace zlx
