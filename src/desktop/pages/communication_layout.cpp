// The communication page: the line, what is sent, and the characters around it. Fields of which the protocol
// has one share a place.
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <functional>

#include "desktop/pages/setup_layout.h"

namespace counter {

namespace {

// A text that opens something. A click is its binder's; Enter and the space bar do the same.
class LinkLabel : public QLabel {
  public:
    explicit LinkLabel(QWidget* parent) : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        setFocusPolicy(Qt::TabFocus);
        setForegroundRole(QPalette::Link);
        setCursor(Qt::PointingHandCursor);
        QFont underlined;
        underlined.setUnderline(true);
        setFont(underlined);
    }
    std::function<void()> Followed;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        const bool follow = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
        if (follow && Followed) return Followed();
        QLabel::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (!hasFocus()) return;
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
};

QWidget* LineBox(SetupLayout& layout, QWidget* frame) {
    const CommunicationPage& comm = layout.View.Communication;
    QGroupBox* box = layout.PlainBox(QStringLiteral("Line"), frame);
    BoxColumn column(layout, box, layout.NewCaptions());
    column.Add(comm.Protocol);
    column.Add(comm.BaudRate);
    column.AddAlternatives({&comm.Address, &comm.MBAddr});
    for (const Framed* pair : {&comm.Duplex, &comm.Parity, &comm.MBTimeout}) column.Add(*pair);
    column.End();
    return box;
}

QWidget* OutputBox(SetupLayout& layout, QWidget* frame) {
    const CommunicationPage& comm = layout.View.Communication;
    QGroupBox* box = layout.PlainBox(QStringLiteral("Output"), frame);
    BoxColumn column(layout, box, layout.NewCaptions());
    for (const Framed* pair : {&comm.OutItems, &comm.OutVal, &comm.OutRate, &comm.SerMode}) column.Add(*pair);
    column.Add(comm.chkAlmData);
    column.Add(comm.chkLF);
    column.Add(comm.CR);
    column.Add(comm.RTS);
    column.End();
    return box;
}

QWidget* RemoteDisplayBox(SetupLayout& layout, QWidget* frame) {
    const CommunicationPage& comm = layout.View.Communication;
    QWidget* box = layout.Bound.MakeGroup(comm.fraRmtDspyC, frame);
    BoxColumn column(layout, box, layout.NewCaptions());
    for (const Framed* pair : {&comm.StartChr, &comm.StopChr, &comm.Skip, &comm.ShowNo}) column.Add(*pair);
    KeepPlace(box);
    return box;
}

QWidget* CharactersBox(SetupLayout& layout, QWidget* frame) {
    const CommunicationPage& comm = layout.View.Communication;
    QGroupBox* box = layout.PlainBox(QStringLiteral("Characters"), frame);
    BoxColumn column(layout, box, layout.NewCaptions());
    for (const Framed* pair :
         {&comm.RecogChr, &comm.CusRecog, &comm.TranChars, &comm.TranStart, &comm.TranStop})
        column.Add(*pair);
    column.AddWidget(RemoteDisplayBox(layout, box));
    auto* table = new LinkLabel(box);
    table->setObjectName(ObjectName(comm.lblAscTbl));
    table->Followed = [&layout, &comm] { layout.View.Controls.Click(comm.lblAscTbl); };
    KeepPlace(table);
    layout.Bound.Bind(comm.lblAscTbl, table);
    column.AddWidget(table);
    column.End();
    return box;
}

}  // namespace

void LayOutCommunication(SetupLayout& layout, QWidget* page) {
    auto* grid = new BoxFlow(page, 1, 3);
    QWidget* frame = layout.Bound.MakeGroup(layout.View.Communication.fraSerComm, page);
    grid->Add(frame, 0, 0);
    auto* columns = new BoxFlow(frame, 3);
    columns->Add(LineBox(layout, frame), 0, 0);
    columns->Add(OutputBox(layout, frame), 0, 1);
    columns->Add(CharactersBox(layout, frame), 0, 2);
}

}  // namespace counter
