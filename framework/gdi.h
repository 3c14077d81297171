// Device contexts and drawing objects, each owning its system handle unless a temporary object stands for it.
// Deliberately missing: drawing calls that nobody above the framework makes.
#pragma once

#include "framework/cstring.h"
#include "framework/geometry.h"
#include "framework/runtime_class.h"

class CDC;

// A drawing object; deleted with its owner.
class CGdiObject : public CObject {
    DECLARE_DYNAMIC(CGdiObject)

public:
    CGdiObject() = default;
    ~CGdiObject() override;

    HGDIOBJ m_hObject = nullptr;

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    // Takes ownership of a handle; FALSE for null.
    BOOL Attach(HGDIOBJ object);
    HGDIOBJ Detach();
    BOOL DeleteObject();
    int GetObject(int size, LPVOID data) const;
};

class CBitmap : public CGdiObject {
    DECLARE_DYNAMIC(CBitmap)

public:
    // A temporary object for a handle that belongs to somebody else; it lives until the queue is idle.
    static CBitmap* FromHandle(HBITMAP bitmap);
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    // Loads a bitmap resource of the current resource module; FALSE when there is none.
    BOOL LoadBitmap(UINT id);
    BOOL CreateCompatibleBitmap(CDC* context, int width, int height);
    int GetBitmap(BITMAP* bitmap) const;
};

class CBrush : public CGdiObject {
    DECLARE_DYNAMIC(CBrush)

public:
    CBrush() = default;
    explicit CBrush(COLORREF color);
    static CBrush* FromHandle(HBRUSH brush);
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    BOOL CreateSolidBrush(COLORREF color);
};

// A device context. It deletes the context that it created or was given; one of a CClientDC or CPaintDC is released.
class CDC : public CObject {
    DECLARE_DYNAMIC(CDC)

public:
    CDC() = default;
    ~CDC() override;

    HDC m_hDC = nullptr;

    // A temporary object for a context that belongs to somebody else, such as that of a draw-item message.
    static CDC* FromHandle(HDC context);
    operator HDC() const { return m_hDC; }
    HDC GetSafeHdc() const { return m_hDC; }
    BOOL Attach(HDC context);
    HDC Detach();
    // A memory context with the same colour format; for null with that of the screen.
    BOOL CreateCompatibleDC(CDC* context);
    BOOL DeleteDC();

    // Selects an object and returns the one selected before, for the caller to put back.
    CBitmap* SelectObject(CBitmap* bitmap);
    CBrush* SelectObject(CBrush* brush);
    HGDIOBJ SelectObject(HGDIOBJ object);

    BOOL BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, DWORD operation);
    BOOL StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                    int sourceHeight, DWORD operation);
    BOOL ExtFloodFill(int x, int y, COLORREF color, UINT type);
    BOOL TextOut(int x, int y, LPCSTR text, int length);
    BOOL TextOut(int x, int y, const CString& text);
    void FillRect(const RECT* rect, CBrush* brush);
    void FrameRect(const RECT* rect, CBrush* brush);
    void DrawFocusRect(const RECT* rect);
    COLORREF SetTextColor(COLORREF color);
    COLORREF SetBkColor(COLORREF color);
    int SetBkMode(int mode);
};

// An object selected into a context for a scope; the former one is put back at its end.
class CSelectObject {
public:
    CSelectObject(CDC& context, HGDIOBJ object) : m_context(context), m_former(context.SelectObject(object)) {}
    ~CSelectObject() { m_context.SelectObject(m_former); }
    CSelectObject(const CSelectObject&) = delete;
    CSelectObject& operator=(const CSelectObject&) = delete;

private:
    CDC& m_context;
    HGDIOBJ m_former;
};
