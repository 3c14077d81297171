// CMdb: the list of records.
#include <memory>
#include <new>

#include "include/tavrikconfig.h"

CMdb::~CMdb() {
    RemoveAll();
}

int CMdb::AddRecord(const char* bytes) {
    std::unique_ptr<CMdbRecord> record(new (std::nothrow) CMdbRecord(bytes));
    const bool hasFields = bytes != nullptr && bytes[0] != '\0';
    if (record == nullptr || (hasFields && record->m_pData == nullptr)) {
        return 0;
    }
    CMdbRecord* added = record.release();
    if (m_pHead == nullptr) {
        m_pHead = added;
    } else {
        m_pTail->m_pNext = added;
    }
    m_pTail = added;
    return 1;
}

CMdbRecord* CMdb::GetRecord(int index) const {
    if (index < 1) {
        return nullptr;
    }
    CMdbRecord* record = m_pHead;
    for (int i = 1; record != nullptr && i < index; ++i) {
        record = record->m_pNext;
    }
    return record;
}

void CMdb::RemoveAll() {
    while (m_pHead != nullptr) {
        CMdbRecord* first = m_pHead;
        m_pHead = first->m_pNext;
        delete first;
    }
}
