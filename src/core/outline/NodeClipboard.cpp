#include "outline/NodeClipboard.h"

#include "outline/ChartEdits.h"

namespace velto {

NodeClipboard& NodeClipboard::Instance() {
    static NodeClipboard clipboard;
    return clipboard;
}

NodeClipboard::~NodeClipboard() {
    FreeChain(m_chain);
}

void NodeClipboard::Hold(CProjectNode* chainFirst, bool reusable) {
    if (chainFirst != m_chain)
        FreeChain(m_chain);
    m_chain = chainFirst;
    m_reusable = reusable;
}

CProjectNode* NodeClipboard::TakeForPaste() {
    if (m_reusable)
        return CopyChain(m_chain);
    CProjectNode* chain = m_chain;
    m_chain = nullptr;
    return chain;
}

} // namespace velto
