// Base of every one-row widget below a screen's title: label, value, suffix, edit state,
// key hints and an optional binding to one managed object.
#pragma once

#include <string>

#include "Display/Cursor.h"
#include "KeyPad/KeyPress.h"
#include "Qb/Types.h"
#include "Qb/Uncopyable.h"

class CDisplay;
class CTavClient;

class CGenericLine : private Qb::CUncopyable {
public:
    CGenericLine();
    virtual ~CGenericLine();

    // Processes one key; the answer tells the menu style whether the line is (still) editing.
    virtual bool HandleKey(const KeyPress_t& key);
    virtual bool SetValue(const char* value);
    virtual bool SetValue(const std::string& value);
    virtual bool SetIndex(int index);
    // The value in the text form written to the controller.
    virtual std::string GetValue();
    virtual void Draw(int row);
    virtual void ReservedHook() {}
    virtual void ShowCursor(int row);
    virtual void HideCursor(int row);
    virtual void RefreshValue();
    virtual Qb::uint32 GetKind() { return m_uKind; }
    virtual void SetFlag0(bool on) { m_bFlag0 = on; }
    virtual bool GetFlag1() { return m_bFlag1; }
    virtual void SetFlag2(bool on) { m_bFlag2 = on; }
    virtual bool GetFlag2() { return m_bFlag2; }
    virtual bool GetFlag3() { return m_bFlag3; }
    virtual void ReservedHook2() {}
    virtual void ReservedHook3() {}
    virtual void ReservedHook4() {}
    virtual void ReservedHook5() {}
    virtual std::string GetText() { return std::string(); }
    virtual void ReservedHook6() {}
    virtual Qb::int32 GetSelectedIndex() { return 0; }
    virtual Qb::uint32 WriteObject(const std::string& value);
    virtual std::string ReadObject();

    void SetLabel(const char* label);
    void SetSuffix(const char* suffix);
    void SetLabelColumn(int column) { m_iLabelColumn = column; }
    void SetReadOnly(bool readOnly) { m_bReadOnly = readOnly; }
    bool IsReadOnly() const { return m_bReadOnly; }
    void SetSelectable(bool selectable) { m_bSelectable = selectable; }
    bool IsSelectable() const { return m_bSelectable; }
    // Disabled lines are drawn but refuse edits (the panel lock sets this).
    void SetEnabled(bool enabled) { m_bDisabled = !enabled; }
    bool IsEnabled() const { return !m_bDisabled; }
    bool TakesKeysWhileIdle() const { return m_bTakesKeysWhileIdle; }
    bool IsEditing() const { return m_bEditing; }
    void SetIdleHint(Qb::uint8 mask) { m_uIdleHint = mask; }
    Qb::uint8 GetIdleHint() const { return m_uIdleHint; }
    void SetEditHint(Qb::uint8 mask) { m_uEditHint = mask; }
    Qb::uint8 GetEditHint() const { return m_uEditHint; }
    void SetBound(bool bound) { m_bBound = bound; }
    bool IsBound() const { return m_bBound; }
    void BindObject(const std::string& name, const std::string& instance);
    void SetObjectName(const std::string& name);
    void SetObjectInstance(const std::string& instance);
    const std::string& GetObjectName() const { return m_strObjectName; }
    const std::string& GetObjectInstance() const { return m_strObjectInstance; }
    void ReloadValue();
    void SetCompanion(bool on) { m_bHasCompanion = on; }
    bool HasCompanion() const { return m_bHasCompanion; }
    const std::string& GetLabel() const { return m_strLabel; }
    // The controller's words when it refused the last write; empty after a write it took.
    const std::string& GetRefusal() const { return m_strRefusal; }
    void ClearRefusal() { m_strRefusal.clear(); }

    // Set by the container (and again by the menu style before every draw).
    void SetDisplay(CDisplay* pDisplay);
    void SetClient(CTavClient* pClient) { m_pClient = pClient; }
    CDisplay* GetDisplay() const { return m_pDisplay; }
    CTavClient* GetClient() const { return m_pClient; }

protected:
    // The common layout: marker column free, label, value (highlighted while editing when
    // asked), optional suffix, the rest of the row blank.
    void DrawLayout(int row, const std::string& value, bool highlight);
    // Its two ends, for lines that draw their own value: the cleared row up to the value,
    // and from `column` on the suffix and the blanks to the end of the row.
    void DrawLabel(int row);
    void DrawTail(int row, int column);
    int ValueColumn() const { return m_iLabelColumn + m_iLabelLength; }

    Qb::uint32 m_uKind;
    bool m_bDisabled;  // first state byte
    bool m_bState2;
    std::string m_strPlaceholder;
    bool m_bFlag0;
    bool m_bFlag1;
    bool m_bFlag2;
    bool m_bFlag3;
    std::string m_strLabel;
    Qb::int32 m_iLabelLength;
    Qb::uint8 m_uIdleHint;
    Qb::uint8 m_uEditHint;
    std::string m_strSuffix;
    Qb::int32 m_iSuffixLength;
    Qb::int32 m_iLabelColumn;
    bool m_bEditing;
    bool m_bHasLabel;
    bool m_bHasSuffix;
    bool m_bTakesKeysWhileIdle;
    bool m_bSelectable;
    CCursor m_cursor;
    CDisplay* m_pDisplay;
    CTavClient* m_pClient;
    Qb::int32 m_iLineWidth;
    std::string m_strObjectInstance;
    std::string m_strObjectName;
    bool m_bReadOnly;
    bool m_bBound;
    bool m_bSpare;
    bool m_bHasCompanion;
    std::string m_strSpare;
    std::string m_strRefusal;
};
