// Drawing objects and device contexts over the system's handles, and the temporary objects for foreign handles.

#include "framework/gdi.h"

#include <utility>

#include "framework/message_routing.h"
#include "framework/module_state.h"

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CDC, CObject)

namespace {

// A temporary object lets go of its handle instead of deleting it.
template <typename Drawing>
class Temporary : public Drawing {
public:
    explicit Temporary(void* handle) { this->Attach(static_cast<HGDIOBJ>(handle)); }
    ~Temporary() override { this->Detach(); }
};

class TemporaryDc : public CDC {
public:
    explicit TemporaryDc(HDC context) { m_hDC = context; }
    ~TemporaryDc() override { m_hDC = nullptr; }
};

AfxTemporaryMap<CBitmap> g_bitmaps;
AfxTemporaryMap<CBrush> g_brushes;
AfxTemporaryMap<CDC> g_contexts;

HGDIOBJ HandleOf(const CGdiObject* object) {
    return object != nullptr ? object->m_hObject : nullptr;
}

}  // namespace

void AfxDeleteTemporaryGdiObjects() {
    const auto all = [](const auto&) { return true; };
    g_bitmaps.Purge(all);
    g_brushes.Purge(all);
    g_contexts.Purge(all);
}

CGdiObject::~CGdiObject() {
    CGdiObject::DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ object) {
    m_hObject = object;
    return object != nullptr;
}

HGDIOBJ CGdiObject::Detach() {
    return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject() {
    return m_hObject != nullptr && ::DeleteObject(Detach());
}

int CGdiObject::GetObject(int size, LPVOID data) const {
    return ::GetObjectA(m_hObject, size, data);
}

CBitmap* CBitmap::FromHandle(HBITMAP bitmap) {
    return bitmap != nullptr
               ? g_bitmaps.FindOrMake(bitmap, [=] { return std::make_unique<Temporary<CBitmap>>(bitmap); })
               : nullptr;
}

BOOL CBitmap::LoadBitmap(UINT id) {
    return Attach(::LoadBitmapA(AfxGetResourceHandle(), MAKEINTRESOURCEA(id)));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* context, int width, int height) {
    return Attach(::CreateCompatibleBitmap(context->m_hDC, width, height));
}

int CBitmap::GetBitmap(BITMAP* bitmap) const {
    return GetObject(sizeof(BITMAP), bitmap);
}

CBrush::CBrush(COLORREF color) {
    CreateSolidBrush(color);
}

CBrush* CBrush::FromHandle(HBRUSH brush) {
    return brush != nullptr ? g_brushes.FindOrMake(brush, [=] { return std::make_unique<Temporary<CBrush>>(brush); })
                            : nullptr;
}

BOOL CBrush::CreateSolidBrush(COLORREF color) {
    return Attach(::CreateSolidBrush(color));
}

CDC::~CDC() {
    CDC::DeleteDC();
}

CDC* CDC::FromHandle(HDC context) {
    return context != nullptr ? g_contexts.FindOrMake(context, [=] { return std::make_unique<TemporaryDc>(context); })
                              : nullptr;
}

BOOL CDC::Attach(HDC context) {
    m_hDC = context;
    return context != nullptr;
}

HDC CDC::Detach() {
    return std::exchange(m_hDC, nullptr);
}

BOOL CDC::CreateCompatibleDC(CDC* context) {
    return Attach(::CreateCompatibleDC(context != nullptr ? context->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() {
    return m_hDC != nullptr && ::DeleteDC(Detach());
}

HGDIOBJ CDC::SelectObject(HGDIOBJ object) {
    return ::SelectObject(m_hDC, object);
}

CBitmap* CDC::SelectObject(CBitmap* bitmap) {
    return CBitmap::FromHandle(static_cast<HBITMAP>(::SelectObject(m_hDC, HandleOf(bitmap))));
}

CBrush* CDC::SelectObject(CBrush* brush) {
    return CBrush::FromHandle(static_cast<HBRUSH>(::SelectObject(m_hDC, HandleOf(brush))));
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, DWORD operation) {
    return ::BitBlt(m_hDC, x, y, width, height, source != nullptr ? source->m_hDC : nullptr, sourceX, sourceY,
                    operation);
}

BOOL CDC::StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                     int sourceHeight, DWORD operation) {
    return ::StretchBlt(m_hDC, x, y, width, height, source != nullptr ? source->m_hDC : nullptr, sourceX, sourceY,
                        sourceWidth, sourceHeight, operation);
}

BOOL CDC::ExtFloodFill(int x, int y, COLORREF color, UINT type) {
    return ::ExtFloodFill(m_hDC, x, y, color, type);
}
BOOL CDC::TextOut(int x, int y, LPCSTR text, int length) {
    return ::TextOutA(m_hDC, x, y, text, length);
}
BOOL CDC::TextOut(int x, int y, const CString& text) {
    return TextOut(x, y, text, text.GetLength());
}
void CDC::FillRect(const RECT* rect, CBrush* brush) {
    ::FillRect(m_hDC, rect, *brush);
}
void CDC::FrameRect(const RECT* rect, CBrush* brush) {
    ::FrameRect(m_hDC, rect, *brush);
}
void CDC::DrawFocusRect(const RECT* rect) {
    ::DrawFocusRect(m_hDC, rect);
}
COLORREF CDC::SetTextColor(COLORREF color) {
    return ::SetTextColor(m_hDC, color);
}
COLORREF CDC::SetBkColor(COLORREF color) {
    return ::SetBkColor(m_hDC, color);
}
int CDC::SetBkMode(int mode) {
    return ::SetBkMode(m_hDC, mode);
}
