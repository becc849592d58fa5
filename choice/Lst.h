#pragma once

#include <QString>
#include <memory>

#include "host/frame/FormControl.h"

class QListWidget;

namespace vorelle {

class LstPrivate;
class OleDragDrop;

/// A two-language list box. The entries live in two pipe-separated lists, one per language,
/// and the list of the current language is shown; the selection is a third list of 1-based
/// entry numbers (Selected). Single selection, multiple selection by plain click and a
/// check-box style (Style 1) are offered, with a right-click menu, clipboard export, a
/// confirmation on removal, a live count in a neighbouring fra or des, a pop-up for entries
/// wider than the list and persistence of entries, selection and scroll position.
///
/// The list widget's own mouse does not select: the form's mouse timer calls MouseMove on
/// each tick with the button and the position, and the control selects from that. On a form
/// without a FormWizard1 the widget's mouse is turned into the same calls.
class VORELLE_EXPORT Lst : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "lst")
    Q_CLASSINFO("ClassId", "{A28CCB77-C075-4CC4-A3E2-C3D632FAE89D}")
    Q_CLASSINFO("InterfaceId", "{25F268D3-AEE5-4CB6-8AE0-5FDDDB60B895}")
    Q_CLASSINFO("EventInterfaceId", "{3DFB45B7-3A9C-4DA5-93A3-388C6140BB09}")
    Q_CLASSINFO("AboutHeader", "ctrlListBox V 1.16")
    Q_CLASSINFO("AboutDescription",
                "Liste zum Auswählen eines oder mehrerer Elemente (internationalisiert)")
    // Persisted, in the order of the property bag.
    Q_PROPERTY(int Style READ Style WRITE setStyle)
    Q_PROPERTY(QString List_de READ List_de WRITE setList_de)
    Q_PROPERTY(QString List_en READ List_en WRITE setList_en)
    Q_PROPERTY(QString Selected READ Selected WRITE setSelected)
    Q_PROPERTY(qint32 TopIndex READ TopIndex WRITE setTopIndex)
    Q_PROPERTY(bool Sorted READ Sorted WRITE setSorted)
    Q_PROPERTY(bool AllowDoubles READ AllowDoubles WRITE setAllowDoubles)
    Q_PROPERTY(bool AllowMultiSelect READ AllowMultiSelect WRITE setAllowMultiSelect)
    Q_PROPERTY(QString UpdateListcountIn READ UpdateListcountIn WRITE setUpdateListcountIn)
    Q_PROPERTY(bool RegSave READ RegSave WRITE setRegSave)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(QString ToolTipText_de READ ToolTipText_de WRITE setToolTipText_de)
    Q_PROPERTY(QString ToolTipText_en READ ToolTipText_en WRITE setToolTipText_en)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(int MousePointer READ MousePointer WRITE setMousePointer)
    Q_PROPERTY(int OLEDragMode READ OLEDragMode WRITE setOLEDragMode)
    Q_PROPERTY(int OLEDropMode READ OLEDropMode WRITE setOLEDropMode)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    // Not persisted.
    Q_PROPERTY(QString List READ List WRITE setList STORED false)
    Q_PROPERTY(QString SelectedEntrys READ SelectedEntrys WRITE setSelectedEntrys STORED false)
    Q_PROPERTY(
        QString SelectedEntrys_de READ SelectedEntrys_de WRITE setSelectedEntrys_de STORED false)
    Q_PROPERTY(
        QString SelectedEntrys_en READ SelectedEntrys_en WRITE setSelectedEntrys_en STORED false)
    Q_PROPERTY(QString Text READ Text WRITE setText STORED false)
    Q_PROPERTY(QString Text_de READ Text_de WRITE setText_de STORED false)
    Q_PROPERTY(QString Text_en READ Text_en WRITE setText_en STORED false)
    Q_PROPERTY(qint32 ListCount READ ListCount STORED false)
    Q_PROPERTY(qint32 ListIndex READ ListIndex WRITE setListIndex STORED false)
    Q_PROPERTY(qint32 SelCount READ SelCount STORED false)
    Q_PROPERTY(QString Status2_de READ Status2_de STORED false)
    Q_PROPERTY(QString Status2_en READ Status2_en STORED false)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = 0xFFFFFF;

    /// Creates the control with its two list widgets; a form's loader passes the form as parent.
    explicit Lst(QWidget* parent = nullptr);
    ~Lst() override;

    // --- Properties ---
    /// 0 plain list, otherwise check boxes; takes effect when read from the property bag.
    int Style() const;
    /// Sets Style (shown from the next load on).
    void setStyle(int style);
    /// The German entries, "|"-separated.
    QString List_de() const;
    /// Sets the German entries: thinned unless AllowDoubles, sorted with Sorted, shown in German.
    void setList_de(const QString& list);
    /// The English entries, "|"-separated.
    QString List_en() const;
    /// Sets the English entries, as setList_de.
    void setList_en(const QString& list);
    /// The entries of the current language.
    QString List() const;
    /// Sets the entries of the current language.
    void setList(const QString& list);
    /// The 1-based numbers of the selected entries, "|"-separated; empty for none.
    QString Selected() const;
    /// Stores the selection as given and marks the rows among it that exist.
    void setSelected(const QString& SelsAsPSL);
    /// The German texts of the selected entries.
    QString SelectedEntrys_de() const;
    /// Selects the entries whose German texts the list holds.
    void setSelectedEntrys_de(const QString& entries);
    /// The English texts of the selected entries.
    QString SelectedEntrys_en() const;
    /// Selects the entries whose English texts the list holds.
    void setSelectedEntrys_en(const QString& entries);
    /// The texts of the selected entries in the current language.
    QString SelectedEntrys() const;
    /// Selects entries by their texts in the current language.
    void setSelectedEntrys(const QString& entries);
    /// SelectedEntrys_de.
    QString Text_de() const;
    /// Forwards to setSelectedEntrys_de.
    void setText_de(const QString& text);
    /// SelectedEntrys_en.
    QString Text_en() const;
    /// Forwards to setSelectedEntrys_en.
    void setText_en(const QString& text);
    /// SelectedEntrys of the current language.
    QString Text() const;
    /// Forwards to setSelectedEntrys.
    void setText(const QString& text);
    /// The number of rows shown.
    qint32 ListCount() const;
    /// The current row (0-based), -1 for none.
    qint32 ListIndex() const;
    /// Makes a row current.
    void setListIndex(qint32 index);
    /// The number of rows selected (or ticked) in the widget.
    qint32 SelCount() const;
    /// The first row shown.
    qint32 TopIndex() const;
    /// Scrolls so that the row is the first shown.
    void setTopIndex(qint32 index);
    /// Whether the entries are kept sorted.
    bool Sorted() const;
    /// Sets Sorted; True sorts the list of the current language at once.
    void setSorted(bool on);
    /// Whether an entry may stand twice.
    bool AllowDoubles() const;
    /// Sets AllowDoubles.
    void setAllowDoubles(bool on);
    /// Whether several entries may be selected (by plain click).
    bool AllowMultiSelect() const;
    /// Sets AllowMultiSelect.
    void setAllowMultiSelect(bool on);
    /// The name of a fra or des on the form that shows the count; empty for none.
    QString UpdateListcountIn() const;
    /// Sets UpdateListcountIn.
    void setUpdateListcountIn(const QString& name);
    /// Whether entries, selection and scroll position are kept in the store.
    bool RegSave() const;
    /// Sets RegSave.
    void setRegSave(bool on);
    /// Whether the user may not change the selection (copying still works).
    bool Locked() const;
    /// Sets Locked.
    void setLocked(bool on);
    /// The German tooltip; a first character "-" means no tooltip.
    QString ToolTipText_de() const;
    /// Sets the German tooltip.
    void setToolTipText_de(const QString& text);
    /// The English tooltip.
    QString ToolTipText_en() const;
    /// Sets the English tooltip.
    void setToolTipText_en(const QString& text);
    /// The German hint for the status line.
    QString Status2_de() const;
    /// The English hint for the status line.
    QString Status2_en() const;
    /// The font of the entries.
    using ControlBase::Font;
    /// Sets the font of the entries.
    using ControlBase::setFontProperty;
    /// The text colour (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets ForeColor.
    using ControlBase::setForeColor;
    /// The background colour (an OLE colour number).
    using ControlBase::BackColor;
    /// Sets BackColor.
    using ControlBase::setBackColor;
    /// Whether the control takes input.
    using ControlBase::Enabled;
    /// Sets Enabled.
    using ControlBase::setEnabledProperty;
    /// The mouse pointer number over the list (0 default).
    int MousePointer() const;
    /// Sets MousePointer.
    void setMousePointer(int pointer);
    /// 1 lets entries be dragged out of the list.
    int OLEDragMode() const;
    /// Sets OLEDragMode.
    void setOLEDragMode(int mode);
    /// Not 0 lets things be dropped on the list.
    int OLEDropMode() const;
    /// Sets OLEDropMode.
    void setOLEDropMode(int mode);

    /// The list widget in use: lstList0 (Style 0) or lstList1 (check boxes).
    QListWidget* activeList() const;
    /// Whether a row is shown selected (Style 0) or ticked (Style 1).
    bool rowMarked(int row) const;

    // --- Methods ---
    /// Adds an entry in both languages ("Item_de" as Item_en: the German text for both) at
    /// the end or, unsorted, at a 1-based place; optionally marks or scrolls to it.
    Q_INVOKABLE void AddItem(const QString& Item_de,
                             const QString& Item_en = QStringLiteral("Item_de"),
                             int IndexStartCountBy1 = -1, bool MarkOrScrollToAddedEntry = false,
                             bool AddAsSelectedIfMultiSel = false);
    /// Removes an entry (-1: the selection or the current row) from the list of the current
    /// language, after a question with Sicherheitsabfrage; false when nothing was removed.
    Q_INVOKABLE bool RemoveItem(int IndexStartCountBy1 = -1, bool MarkNextEntry = false,
                                bool Sicherheitsabfrage = false);
    /// Removes the entry with this text in the current language.
    Q_INVOKABLE bool RemoveItemByEntry(const QString& EntryText, bool MarkNextEntry = false,
                                       bool Sicherheitsabfrage = false);
    /// Empties both lists, the selection and the widget.
    Q_INVOKABLE void Clear();
    /// The 1-based number of a German entry, 0 when absent.
    Q_INVOKABLE int GetEntryIndex_de(const QString& EntryText) const;
    /// The 1-based number of an English entry, 0 when absent.
    Q_INVOKABLE int GetEntryIndex_en(const QString& EntryText) const;
    /// The 1-based number of an entry of the current language, 0 when absent.
    Q_INVOKABLE int GetEntryIndex(const QString& EntryText) const;
    /// The German entry of a 1-based number.
    Q_INVOKABLE QString GetEntryText_de(int EntryIndexStartBy1) const;
    /// The English entry of a 1-based number.
    Q_INVOKABLE QString GetEntryText_en(int EntryIndexStartBy1) const;
    /// The entry of a 1-based number in the current language.
    Q_INVOKABLE QString GetEntryText(int EntryIndexStartBy1) const;
    /// Raises Change and writes the count into the control that UpdateListcountIn names.
    Q_INVOKABLE void UpdateListCount();
    /// Selects entry n (1-based); beyond the list nothing happens.
    Q_INVOKABLE void AddSelection(int IndexStartCountAt1);
    /// Unselects entry n (1-based).
    Q_INVOKABLE void RemoveSelection(int IndexStartCountAt1);
    /// Called by a SelectionAdded handler while Space flips a ticked row of the check-box
    /// style: the tick stays.
    Q_INVOKABLE void CancelSelectionAdded();
    /// Flips the selection of every entry.
    Q_INVOKABLE void InvertSelectionAll();
    /// Unselects every entry.
    Q_INVOKABLE void ClearSelection();
    /// Selects every entry.
    Q_INVOKABLE void SelectAll();
    /// Shows the list of the current language anew.
    Q_INVOKABLE void ChangeList();
    /// Shows Selected on the widget; SelectionChange unless it is a correction.
    Q_INVOKABLE void ChangeSelection(bool EventThrownByErrorCorrection = false);
    /// Copies the selected entries, one a line, to the clipboard.
    Q_INVOKABLE void SelectionToClipboard();
    /// Copies every entry, one a line, to the clipboard.
    Q_INVOKABLE void ListToClipboard();
    /// Loads the language again and shows its list and the selection.
    Q_INVOKABLE void Refresh();
    /// Loads selection, the list of the current language and the current row from the store.
    Q_INVOKABLE void RegLoading();
    /// Writes both lists, the selection, the current row and the first row shown.
    Q_INVOKABLE void RegSaving();
    /// Loads both lists from the store.
    Q_INVOKABLE void RegLoadList();
    /// Writes both lists to the store.
    Q_INVOKABLE void RegSaveList();
    /// The mouse timer's call on each tick over the list: button and position in twips.
    Q_INVOKABLE void MouseMove(int Button, float X, float Y);
    /// Nothing.
    Q_INVOKABLE void MouseUp(int Button, float X, float Y);
    /// Starts a drag of the selected entries (one a line), whatever OLEDragMode is.
    Q_INVOKABLE void OLEDrag();

signals:
    /// The entries changed (also raised by UpdateListCount).
    void Change();
    /// The selection shown changed.
    void SelectionChange();
    /// A click ended (at the release of the left button).
    void Click();
    /// A double click on an unlocked list.
    void DblClick();
    /// A key went down on the list.
    void KeyDown(int& KeyCode, int& Shift);
    /// A character was typed on the list.
    void KeyPress(int& KeyAscii);
    /// A key went up on the list.
    void KeyUp(int& KeyCode, int& Shift);
    /// A button went down over the list.
    void MouseDown(int Button, int Shift, float X, float Y);
    /// The mouse moved over the list.
    void MouseMove(int Button, int Shift, float X, float Y);
    /// A button went up over the list.
    void MouseUp(int Button, int Shift, float X, float Y);
    /// A drag from the list ended with Effect (0 none, 1 copy, 2 move).
    void OLECompleteDrag(int& Effect);
    /// Data was dropped on the list (OLEDropMode 1).
    void OLEDragDrop(QVariant Data, int& Effect, int Button, int Shift, float X, float Y);
    /// Data is dragged over the list (OLEDropMode 1): State 0 enter, 1 leave, 2 over.
    void OLEDragOver(QVariant Data, int& Effect, int Button, int Shift, float X, float Y,
                     int State);
    /// The effect of a drag from the list changed.
    void OLEGiveFeedback(int& Effect, bool& DefaultCursors);
    /// A target asks for data that the drag does not hold yet.
    void OLESetData(QVariant Data, int& DataFormat);
    /// A drag from the list starts; AllowedEffects 0 cancels it.
    void OLEStartDrag(QVariant Data, int& AllowedEffects);
    /// The list scrolled.
    void Scroll();
    /// Entry n was selected.
    void SelectionAdded(int EntryNumStartBy1);
    /// Entry n was unselected.
    void SelectionDeleted(int EntryNumStartBy1);

protected:
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
    void Resize() override;
    void ApplyLanguage() override;
    void EnterFocus() override;
    void ExitFocus() override;
    void applyForeColor(const QColor& color) override;
    void applyBackColor(const QColor& color) override;
    void applyFont(const QFont& font) override;
    void applyEnabled(bool on) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void storeList(bool german, const QString& list);
    void collectMarks();
    // Selects the entries of the list (one language's) that the PSL of texts names.
    void selectEntriesOf(const QString& list, const QString& entries);
    void toggleRow(int number);
    void showMenu();
    void handleKeyDown(QKeyEvent* event);
    bool handleKeyPress(QKeyEvent* event);
    void hover(int row);
    void onParentLoad();
    void onScroll();
    void statusText(const QString& de, const QString& en);
    OleDragDrop* makeDragDrop(QListWidget* list);
    void applyDragDropModes();
    std::unique_ptr<LstPrivate> d;
};

}  // namespace vorelle
