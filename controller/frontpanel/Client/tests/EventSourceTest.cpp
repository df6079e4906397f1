// The in-daemon observer scheme: delivery order, duplicates, removal and the forwarding
// handler.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Client/EventHandler.h"
#include "Client/EventSource.h"

namespace {

// Records each call as "<name>:<a>" in a shared journal.
class CRecorder : public CEventHandler {
public:
    CRecorder(std::vector<std::string>* pJournal, const std::string& name)
        : m_pJournal(pJournal), m_strName(name)
    {
    }
    bool HandleEvent(int a, void*, void*) override
    {
        m_pJournal->push_back(m_strName + ":" + std::to_string(a));
        return true;
    }

private:
    std::vector<std::string>* m_pJournal;
    std::string m_strName;
};

// Registers another handler with the source while it is being delivered to, once.
class CRegistersDuringDelivery : public CEventHandler {
public:
    CRegistersDuringDelivery(CEventSource* pSource, CEventHandler* pLate) : m_pSource(pSource), m_pLate(pLate)
    {
    }
    bool HandleEvent(int, void*, void*) override
    {
        if (m_pLate != nullptr)
            m_pSource->Register(m_pLate);
        m_pLate = nullptr;
        return true;
    }

private:
    CEventSource* m_pSource;
    CEventHandler* m_pLate;
};

TEST(EventSourceTest, DeliversInRegistrationOrderIncludingDuplicatesAndGrowth)
{
    std::vector<std::string> journal;
    std::vector<CRecorder> handlers;
    for (int i = 0; i < 9; ++i)  // past any small initial capacity
        handlers.emplace_back(&journal, "h" + std::to_string(i));
    CEventSource source;
    EXPECT_FALSE(source.HasHandlers());
    EXPECT_TRUE(source.Notify(1, nullptr, nullptr)) << "an empty source still reports success";
    EXPECT_TRUE(journal.empty());

    for (CRecorder& h : handlers)
        EXPECT_TRUE(source.Register(&h));
    EXPECT_TRUE(source.Register(&handlers[0]));
    EXPECT_TRUE(source.HasHandlers());

    EXPECT_TRUE(source.Notify(7, nullptr, nullptr));
    std::vector<std::string> expected;
    for (int i = 0; i < 9; ++i)
        expected.push_back("h" + std::to_string(i) + ":7");
    expected.push_back("h0:7");
    EXPECT_EQ(journal, expected);
}

TEST(EventSourceTest, UnregisterRemovesEveryRegistrationAndKeepsTheOrder)
{
    std::vector<std::string> journal;
    CRecorder a(&journal, "a"), b(&journal, "b"), c(&journal, "c"), stranger(&journal, "x");
    CEventSource source;
    source.Register(&a);
    source.Register(&b);
    source.Register(&a);
    source.Register(&c);

    EXPECT_TRUE(source.Unregister(&a));
    EXPECT_FALSE(source.Unregister(&a)) << "already gone";
    EXPECT_FALSE(source.Unregister(&stranger));
    source.Notify(2, nullptr, nullptr);
    EXPECT_EQ(journal, (std::vector<std::string>{"b:2", "c:2"}));

    EXPECT_TRUE(source.Unregister(&b));
    EXPECT_TRUE(source.Unregister(&c));
    EXPECT_FALSE(source.HasHandlers());
}

TEST(EventSourceTest, HandlerRegisteredDuringDeliveryIsCalledInTheSameRound)
{
    std::vector<std::string> journal;
    CEventSource source;
    CRecorder late(&journal, "late");
    CRegistersDuringDelivery first(&source, &late);
    // Fill the array to its capacity so the registration during delivery also regrows it.
    std::vector<CRecorder> fillers(3, CRecorder(&journal, "f"));
    source.Register(&first);
    for (CRecorder& f : fillers)
        source.Register(&f);

    source.Notify(5, nullptr, nullptr);
    EXPECT_EQ(journal, (std::vector<std::string>{"f:5", "f:5", "f:5", "late:5"}));
}

// A target with the event entry the forwarding handler calls.
struct CTarget {
    CEventHandler* pFrom = nullptr;
    int a = 0;
    void* b = nullptr;
    void* c = nullptr;
    int calls = 0;
    bool OnEvent(CEventHandler* from, int ea, void* eb, void* ec)
    {
        pFrom = from;
        a = ea;
        b = eb;
        c = ec;
        ++calls;
        return false;  // the handler reports success whatever the target says
    }
};

TEST(EventSourceTest, ForwardingHandlerPassesItselfAndTheArgumentsOrSwallowsWithoutTarget)
{
    CTarget target;
    TEventHandler<CTarget> forward(&target);
    TEventHandler<CTarget> nowhere(nullptr);
    CEventSource source;
    source.Register(&nowhere);
    source.Register(&forward);

    int first = 0;
    bool second = false;
    EXPECT_TRUE(nowhere.HandleEvent(1, &first, &second));
    EXPECT_EQ(target.calls, 0);

    source.Notify(3, &first, &second);
    EXPECT_EQ(target.calls, 1) << "the null-target handler does not stop delivery to the next";
    EXPECT_EQ(target.pFrom, &forward);
    EXPECT_EQ(target.a, 3);
    EXPECT_EQ(target.b, &first);
    EXPECT_EQ(target.c, &second);
    EXPECT_TRUE(forward.HandleEvent(4, nullptr, nullptr));
}

}  // namespace
