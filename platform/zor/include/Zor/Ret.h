// Result of every controller request.
#pragma once

#include <string>

#include "Zor/Param.h"

namespace Zor {

class CRet {
public:
    CRet() : m_bSuccess(false) {}
    CRet(bool success, const std::string& msg, const CParam& val = CParam())
        : m_bSuccess(success), m_strMsg(msg), m_val(val) {}

    static CRet Ok(const CParam& val = CParam()) { return CRet(true, "", val); }
    static CRet Fail(const std::string& msg) { return CRet(false, msg); }

    bool Success() const { return m_bSuccess; }
    // The controller's words on failure; empty on success.
    const std::string& Msg() const { return m_strMsg; }
    const CParam& Val() const { return m_val; }

private:
    bool m_bSuccess;
    std::string m_strMsg;
    CParam m_val;
};

}  // namespace Zor
