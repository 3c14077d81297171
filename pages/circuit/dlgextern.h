// dlgextern: the page "Yttre / Montage", the options of external diagrams and assembly drawings.
#pragma once

#include "core/settings_page.h"

class dlgextern : public CSettingsPage {
    DECLARE_DYNAMIC(dlgextern)
    DECLARE_MESSAGE_MAP()

public:
    dlgextern();
    ~dlgextern() override;

    int LoadSettings(const CMdb* store) override;
    BOOL OnSetActive() override;
    BOOL OnKillActive() override;
    BOOL OnApply() override;

    // The scale is exchanged as a number; `recorded` is what the store gets of it.
    static void ExchangeScale(CDataExchange* exchange, int id, CString& recorded);

    // The settings as they are shown. Radio members are the index of the checked button, -1 for none.
    int m_nBalloonDir = -1;
    int m_nPartMarking = -1;
    CString m_strTermXHor;
    CString m_strTermYVer;
    CString m_strTermXVer;
    CString m_strTermYHor;
    CString m_strTermHeight;
    CString m_strTermWidth;
    int m_bAutoBet = 0;
    double m_dAssemblyScale = 0.0;
    CString m_strAssemblyScale;
    // The height as it was loaded, from the first activation on as it was chosen on the page of texts.
    CString m_strAssemblyTextHeight;
    // As loaded; a click does not change it.
    int m_bTextVisible = 0;
    // Non-zero shows the pictures with wires drawn vertically. No setting does.
    int m_bVerticalWires = -1;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    UINT PreviewBitmap(UINT control) const override;

    afx_msg void OnVisibleClicked();

private:
    void LoadAssembly(const CMdb* store);
    bool AreDesignationsVisible() const;
    CButton& VisibleBox() const;
};
