#pragma once

#include <QString>

#include <cstddef>
#include <vector>

namespace orbisgrid {

/// What a box has held, edit by edit, for undo and redo.
class EditHistory {
public:
    struct State {
        QString text;
        int caret = 0;
    };

    const State& current() const { return m_states[m_at]; }

    /// From now on there is this state alone: what was before is not to come back.
    void restart(const State& state);

    /// An edit led to this state. What was undone before is forgotten, and so are edits so long ago
    /// that nobody goes back to them.
    void add(State state);

    /// The current state has another text now, which is no edit of its own.
    void amend(const QString& text) { m_states[m_at].text = text; }

    bool canUndo() const { return m_at > 0; }

    bool canRedo() const { return m_at + 1 < m_states.size(); }

    /// One edit back or forth. Result: the state it leads to; the current one where there is none.
    const State& undo();
    const State& redo();

private:
    std::vector<State> m_states{1};
    std::size_t m_at = 0;
};

} // namespace orbisgrid
