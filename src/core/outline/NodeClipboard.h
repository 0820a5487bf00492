#pragma once
// The application's node clipboard: one per process, so a subtree cut or copied in one project can
// be pasted into another. A cut chain is pasted once (its nodes then belong to the document); a
// copied chain may be pasted again and again, each paste getting fresh copies.
#include "model/ProjectNode.h"

namespace velto {

class NodeClipboard {
public:
    static NodeClipboard& Instance();

    NodeClipboard() = default;
    ~NodeClipboard();
    NodeClipboard(const NodeClipboard&) = delete;
    NodeClipboard& operator=(const NodeClipboard&) = delete;

    bool IsEmpty() const { return m_chain == nullptr; }
    // The chain held, for reading (its outline, its first level); null when empty.
    const CProjectNode* Peek() const { return m_chain; }

    // Takes ownership of a chain, replacing (and freeing) what was held.
    void HoldCopy(CProjectNode* chainFirst) { Hold(chainFirst, true); }
    void HoldCut(CProjectNode* chainFirst) { Hold(chainFirst, false); }
    // The chain to insert, owned by the caller from now on: the held chain itself after a cut (the
    // clipboard is empty afterwards), a fresh copy after a copy. Null when empty.
    CProjectNode* TakeForPaste();
    void Clear() { Hold(nullptr, false); }

private:
    void Hold(CProjectNode* chainFirst, bool reusable);

    CProjectNode* m_chain = nullptr;
    bool m_reusable = false;
};

} // namespace velto
