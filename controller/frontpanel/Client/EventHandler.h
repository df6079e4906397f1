// Observer scheme inside the daemon: a source fans events out to registered handlers.
#pragma once

class CEventHandler {
public:
    virtual ~CEventHandler() {}
    virtual bool HandleEvent(int a, void* b, void* c) = 0;
};

// Forwards every event to T::OnEvent(handler, a, b, c); a null target swallows events.
template <typename T>
class TEventHandler : public CEventHandler {
public:
    explicit TEventHandler(T* pTarget = nullptr) : m_pTarget(pTarget) {}

    bool HandleEvent(int a, void* b, void* c) override
    {
        if (m_pTarget == nullptr)
            return true;
        m_pTarget->OnEvent(this, a, b, c);
        return true;
    }

    T* GetTarget() const { return m_pTarget; }

private:
    T* m_pTarget;
};
