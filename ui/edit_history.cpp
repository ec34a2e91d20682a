#include "ui/edit_history.h"

#include <utility>

namespace orbisgrid {

void EditHistory::restart(const State& state) {
    m_states.assign(1, state);
    m_at = 0;
}

void EditHistory::add(State state) {
    constexpr std::size_t most = 200;
    m_states.resize(m_at + 1);
    m_states.push_back(std::move(state));
    if (m_states.size() > most)
        m_states.erase(m_states.begin());
    m_at = m_states.size() - 1;
}

const EditHistory::State& EditHistory::undo() {
    if (canUndo())
        --m_at;
    return current();
}

const EditHistory::State& EditHistory::redo() {
    if (canRedo())
        ++m_at;
    return current();
}

} // namespace orbisgrid
