// The public face of the settings component: the store that host and library share in memory, and the one
// exported function. A host needs nothing else; the key operations of the pages are not offered here.
//
// Memory contract. The library reads the host's records, rewrites their values (freeing a buffer that grows) and
// appends records that the host keeps. Host and library therefore use one allocator for record objects and buffers:
// both take them from global operator new and give them back to global operator delete. In the Windows library these
// are malloc and free of the system's C run time, msvcrt.dll, in 32 and in 64 bit: a host of that run time can free
// what the library appended, and any other host builds its store with those two functions.
//
// Threading. The store belongs to the thread that calls Tavrikconfig; nothing is locked, and a second call is refused.
#pragma once

#include <cstddef>

struct HWND__;
typedef struct HWND__* HWND;

// One record: a byte string of tagged fields. A field is a non-zero tag byte, the text, and NUL; one more NUL ends the
// record. A settings record holds tag 1, the key, and tag 2, the value:  01 K E Y 00 02 v a l u e 00 00.
// The order of the fields carries no meaning, and SetField changes it.
class CMdbRecord {
public:
    static constexpr int kKeyTag = 1;
    static constexpr int kValueTag = 2;

    // Copies the byte string. A null pointer or a lone NUL gives a record without a buffer.
    // Where memory runs out the record has no buffer either; CMdb::AddRecord tells the two apart.
    explicit CMdbRecord(const char* bytes) noexcept;
    ~CMdbRecord();
    CMdbRecord(const CMdbRecord&) = delete;
    CMdbRecord& operator=(const CMdbRecord&) = delete;

    // Bytes in use including the final NUL; 0 without a buffer.
    unsigned GetSize() const;

    // Offset of the field's tag byte, or -1. Only tags 1 to 127 can be found.
    int FindField(int tag) const;

    // The field's text, owned by the record and valid until the record is changed; null when the field is absent.
    char* GetField(int tag);
    const char* GetField(int tag) const;

    // Sets, adds or (text null) removes a field. A text no longer than the old one is written in place; a longer or new
    // one takes a new buffer, in which the field comes first. Returns the field's text; null when nothing was
    // done: a tag outside 1 to 127, removal of an absent field, or no memory (the record is then as it was).
    char* SetField(int tag, const char* text);

    const char* GetData() const { return m_pData; }
    CMdbRecord* GetNext() const { return m_pNext; }

    // Non-zero once the library has overwritten this record's value on OK. Records that the library appended
    // keep 0: a host finds those behind the records that it passed in.
    int IsChanged() const { return m_bChanged; }
    void SetChanged(int changed) { m_bChanged = changed; }

private:
    friend class CMdb;
    friend class CPreparedMerge;
    friend struct MdbLayout;

    char* m_pData = nullptr;
    CMdbRecord* m_pNext = nullptr;
    int m_bChanged = 0;
};

// The store: a singly linked list that owns its records. Keys may repeat; every key operation takes the first match.
class CMdb {
public:
    // The tail is left alone: a host's own class may leave anything there before the first record.
    CMdb() noexcept : m_pHead(nullptr) {}  // NOLINT(clang-analyzer-optin.cplusplus.UninitializedObject)
    ~CMdb();
    CMdb(const CMdb&) = delete;
    CMdb& operator=(const CMdb&) = delete;

    // Appends a record made from the byte string. Returns 1, or 0 when memory ran out; the store is then as it was.
    int AddRecord(const char* bytes);

    // The record with the 1-based index in list order; null outside the list.
    CMdbRecord* GetRecord(int index) const;
    CMdbRecord* GetFirst() const { return m_pHead; }

    // Deletes every record.
    void RemoveAll();

private:
    friend class CPreparedMerge;
    friend struct MdbLayout;

    // The last record, meaningful only while there is a first one; not written before the first AddRecord.
    CMdbRecord* m_pTail;
    CMdbRecord* m_pHead;
};

// The layouts are a contract with hosts that bring classes of their own: two pointers and a 32-bit integer, two
// pointers.
struct MdbLayout {
    static_assert(sizeof(int) == 4);
    static_assert(offsetof(CMdbRecord, m_pData) == 0);
    static_assert(offsetof(CMdbRecord, m_pNext) == sizeof(void*));
    static_assert(offsetof(CMdbRecord, m_bChanged) == 2 * sizeof(void*));
    static_assert(sizeof(CMdbRecord) == (sizeof(void*) == 4 ? 12 : 24));
    static_assert(offsetof(CMdb, m_pTail) == 0);
    static_assert(offsetof(CMdb, m_pHead) == sizeof(void*));
    static_assert(sizeof(CMdb) == 2 * sizeof(void*));
};

// Shows the settings sheet, modal to `parent` (null is allowed), on the calling thread.
//
// caption            the sheet's title, code page 1252; null counts as an empty text
// hostStore          settings to load; receives the changes on OK and is untouched otherwise; must not be null
// designationOption  non-zero offers the designation options
// optionalPages      non-zero asks for the pages on cross-references and connections, as far as the library has them
// hostMode           the host's kind of drawing; 3 hides the options of cables and assemblies
//
// Returns 1 when the user closed the sheet with OK and every change is in the store, 0 otherwise: where memory runs out
// the sheet ends as if cancelled. Throws nothing.
//
// One call runs at a time. One that comes meanwhile, on another thread or from a window procedure of the host, is
// refused: it returns 0 at once and touches nothing.
//
// On Windows the function is exported under the name that the platform's usual C++ compiler gives to this
// declaration: `?Tavrikconfig@@YAHPEAUHWND__@@PEBDPEAVCMdb@@HHH@Z`, on 32 bit
// `?Tavrikconfig@@YAHPAUHWND__@@PBDPAVCMdb@@HHH@Z`; elsewhere under this compiler's own.
int Tavrikconfig(HWND parent, const char* caption, CMdb* hostStore, int designationOption, int optionalPages,
                 int hostMode);
