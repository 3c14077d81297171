// Device contexts and what is drawn into them.
#pragma once

#include "tavrikwin/types.h"

#define RGB(r, g, b)                                                                               \
    (static_cast<COLORREF>(static_cast<BYTE>(r) | (static_cast<WORD>(static_cast<BYTE>(g)) << 8) | \
                           (static_cast<DWORD>(static_cast<BYTE>(b)) << 16)))
#define GetRValue(rgb) (LOBYTE(rgb))
#define GetGValue(rgb) (LOBYTE(static_cast<WORD>(rgb) >> 8))
#define GetBValue(rgb) (LOBYTE((rgb) >> 16))
#define CLR_INVALID 0xFFFFFFFF

struct tagPAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};
using PAINTSTRUCT = tagPAINTSTRUCT;
using LPPAINTSTRUCT = PAINTSTRUCT*;

struct tagBITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};
using BITMAP = tagBITMAP;

struct tagBITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
};
using BITMAPINFOHEADER = tagBITMAPINFOHEADER;

struct tagRGBQUAD {
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
};
using RGBQUAD = tagRGBQUAD;

struct tagBITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};
using BITMAPINFO = tagBITMAPINFO;
using LPBITMAPINFO = BITMAPINFO*;

struct tagTEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
using TEXTMETRICA = tagTEXTMETRICA;
using LPTEXTMETRICA = TEXTMETRICA*;

#define LF_FACESIZE 32
struct tagLOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    CHAR lfFaceName[LF_FACESIZE];
};
using LOGFONTA = tagLOGFONTA;

#define BI_RGB 0
#define DIB_RGB_COLORS 0
#define SRCCOPY 0x00CC0020u
#define DSTINVERT 0x00550009u
#define PATCOPY 0x00F00021u
#define WHITENESS 0x00FF0062u
#define BLACKNESS 0x00000042u
#define BLACKONWHITE 1
#define COLORONCOLOR 3
#define HALFTONE 4
#define TRANSPARENT 1
#define OPAQUE 2
#define FLOODFILLBORDER 0
#define FLOODFILLSURFACE 1
#define PS_SOLID 0
#define PS_DOT 2
#define PS_NULL 5
#define FW_NORMAL 400
#define FW_BOLD 700
#define ANSI_CHARSET 0
#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define SYSTEM_FONT 13
#define DEFAULT_GUI_FONT 17
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004
#define RGN_ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3
#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define BITSPIXEL 12

#define DT_LEFT 0x0000
#define DT_CENTER 0x0001
#define DT_RIGHT 0x0002
#define DT_VCENTER 0x0004
#define DT_BOTTOM 0x0008
#define DT_WORDBREAK 0x0010
#define DT_SINGLELINE 0x0020
#define DT_EXPANDTABS 0x0040
#define DT_NOCLIP 0x0100
#define DT_CALCRECT 0x0400
#define DT_NOPREFIX 0x0800
#define DT_END_ELLIPSIS 0x8000
#define DT_HIDEPREFIX 0x00100000

#define BDR_RAISEDOUTER 0x0001
#define BDR_SUNKENOUTER 0x0002
#define BDR_RAISEDINNER 0x0004
#define BDR_SUNKENINNER 0x0008
#define EDGE_RAISED (BDR_RAISEDOUTER | BDR_RAISEDINNER)
#define EDGE_SUNKEN (BDR_SUNKENOUTER | BDR_SUNKENINNER)
#define EDGE_ETCHED (BDR_SUNKENOUTER | BDR_RAISEDINNER)
#define BF_LEFT 0x0001
#define BF_TOP 0x0002
#define BF_RIGHT 0x0004
#define BF_BOTTOM 0x0008
#define BF_RECT (BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM)
#define BF_MIDDLE 0x0800
#define BF_SOFT 0x1000
#define BF_ADJUST 0x2000
#define BF_FLAT 0x4000
#define BF_MONO 0x8000

#define DFC_SCROLL 3
#define DFC_BUTTON 4
#define DFCS_BUTTONCHECK 0x0000
#define DFCS_BUTTONRADIO 0x0004
#define DFCS_BUTTONPUSH 0x0010
#define DFCS_SCROLLUP 0x0000
#define DFCS_SCROLLDOWN 0x0001
#define DFCS_SCROLLLEFT 0x0002
#define DFCS_SCROLLRIGHT 0x0003
#define DFCS_SCROLLCOMBOBOX 0x0005
#define DFCS_INACTIVE 0x0100
#define DFCS_PUSHED 0x0200
#define DFCS_CHECKED 0x0400
#define DFCS_ADJUSTRECT 0x2000
#define DFCS_FLAT 0x4000

#define COLOR_SCROLLBAR 0
#define COLOR_MENU 4
#define COLOR_WINDOW 5
#define COLOR_WINDOWFRAME 6
#define COLOR_MENUTEXT 7
#define COLOR_WINDOWTEXT 8
#define COLOR_HIGHLIGHT 13
#define COLOR_HIGHLIGHTTEXT 14
#define COLOR_BTNFACE 15
#define COLOR_3DFACE COLOR_BTNFACE
#define COLOR_BTNSHADOW 16
#define COLOR_3DSHADOW COLOR_BTNSHADOW
#define COLOR_GRAYTEXT 17
#define COLOR_BTNTEXT 18
#define COLOR_BTNHIGHLIGHT 20
#define COLOR_3DHIGHLIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DHILIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DDKSHADOW 21
#define COLOR_3DLIGHT 22

#pragma GCC visibility push(default)
extern "C" {

HDC CreateCompatibleDC(HDC dc);
BOOL DeleteDC(HDC dc);
int SaveDC(HDC dc);
BOOL RestoreDC(HDC dc, int saved);
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
HGDIOBJ GetStockObject(int index);
BOOL DeleteObject(HGDIOBJ object);
int GetObjectA(HGDIOBJ object, int size, LPVOID data);
int GetDeviceCaps(HDC dc, int index);

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
HBITMAP LoadBitmapA(HINSTANCE instance, LPCSTR name);
int GetDIBits(HDC dc, HBITMAP bitmap, UINT firstLine, UINT lines, LPVOID bits, LPBITMAPINFO info, UINT usage);
HBRUSH CreateSolidBrush(COLORREF colour);
HPEN CreatePen(int style, int width, COLORREF colour);
HFONT CreateFontIndirectA(const LOGFONTA* font);
COLORREF GetSysColor(int index);
HBRUSH GetSysColorBrush(int index);

COLORREF SetTextColor(HDC dc, COLORREF colour);
COLORREF GetTextColor(HDC dc);
COLORREF SetBkColor(HDC dc, COLORREF colour);
COLORREF GetBkColor(HDC dc);
int SetBkMode(HDC dc, int mode);
int SetStretchBltMode(HDC dc, int mode);

BOOL BitBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, DWORD operation);
BOOL StretchBlt(HDC to, int x, int y, int width, int height, HDC from, int fromX, int fromY, int fromWidth,
                int fromHeight, DWORD operation);
BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);
BOOL ExtFloodFill(HDC dc, int x, int y, COLORREF colour, UINT kind);
COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour);
COLORREF GetPixel(HDC dc, int x, int y);
BOOL Polygon(HDC dc, const POINT* points, int count);
BOOL Ellipse(HDC dc, int left, int top, int right, int bottom);
int FillRect(HDC dc, LPCRECT rect, HBRUSH brush);
int FrameRect(HDC dc, LPCRECT rect, HBRUSH brush);
BOOL InvertRect(HDC dc, LPCRECT rect);
BOOL DrawFocusRect(HDC dc, LPCRECT rect);
BOOL DrawEdge(HDC dc, LPRECT rect, UINT edge, UINT flags);
BOOL DrawFrameControl(HDC dc, LPRECT rect, UINT kind, UINT state);

BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length);
BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, LPCRECT rect, LPCSTR text, UINT length, const INT* advances);
int DrawTextA(HDC dc, LPCSTR text, int length, LPRECT rect, UINT format);
BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, LPSIZE size);
BOOL GetTextExtentExPointA(HDC dc, LPCSTR text, int length, int maxExtent, LPINT fit, LPINT extents, LPSIZE size);
BOOL GetTextMetricsA(HDC dc, LPTEXTMETRICA metrics);

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);
int GetClipBox(HDC dc, LPRECT rect);
BOOL RectVisible(HDC dc, LPCRECT rect);
BOOL SetViewportOrgEx(HDC dc, int x, int y, LPPOINT old);

BOOL SetRect(LPRECT rect, int left, int top, int right, int bottom);
BOOL SetRectEmpty(LPRECT rect);
BOOL InflateRect(LPRECT rect, int dx, int dy);
BOOL OffsetRect(LPRECT rect, int dx, int dy);
BOOL IntersectRect(LPRECT result, LPCRECT a, LPCRECT b);
BOOL IsRectEmpty(LPCRECT rect);
BOOL EqualRect(LPCRECT a, LPCRECT b);
BOOL PtInRect(LPCRECT rect, POINT point);

}  // extern "C"
#pragma GCC visibility pop
