// Writes: one operation, a request wrapper and an all-or-nothing transaction.
#pragma once

#include <string>
#include <vector>

#include "Zor/Oid.h"
#include "Zor/Param.h"

namespace Zor {

class COp {
public:
    COp(const std::string& name, const COid& instance, const CParam& value)
        : m_strName(name), m_instance(instance), m_value(value) {}

    const std::string& Name() const { return m_strName; }
    const COid& Instance() const { return m_instance; }
    const CParam& Value() const { return m_value; }

private:
    std::string m_strName;
    COid m_instance;
    CParam m_value;
};

// A request built from a value (a write's payload, kept for the caller).
class CRequest {
public:
    explicit CRequest(const CParam& param) : m_param(param) {}
    const CParam& Param() const { return m_param; }

private:
    CParam m_param;
};

class CTxn {
public:
    void AddOp(const COp& op) { m_ops.push_back(op); }
    const std::vector<COp>& Ops() const { return m_ops; }
    bool IsEmpty() const { return m_ops.empty(); }

private:
    std::vector<COp> m_ops;
};

}  // namespace Zor
