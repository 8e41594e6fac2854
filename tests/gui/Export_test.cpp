// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/MainWindowTest.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProgressDialog>
#include <QSvgRenderer>
#include <QTimer>

#include "workstation/renderers/WindowedGridRenderer.h"

namespace gui {

class ExportTest : public MainWindowTest {
protected:
    QString FileNamed(const char* Name) const { return ws::ToQt((Folder / Name).string()); }
    static QByteArray Content(const QString& Name) {
        QFile File(Name);
        return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
    }
    // Pixels that are neither paper nor nearly so.
    static int Inked(const QImage& Picture) {
        int Result = 0;
        for (int Y = 0; Y < Picture.height(); ++Y)
            for (int X = 0; X < Picture.width(); ++X) Result += qGray(Picture.pixel(X, Y)) < 200 ? 1 : 0;
        return Result;
    }
    ws::TWindowedGridRenderer& Detail() const {
        for (auto* Each : Window->Docks().Current()->findChildren<QAbstractScrollArea*>())
            if (auto* Found = dynamic_cast<ws::TWindowedGridRenderer*>(Each)) return *Found;
        throw std::runtime_error("no table of results");
    }
    void Enter(fw::TFrame& Frame, const char* Control, double Value) {
        ws::TPlayer Player(Frame);
        ASSERT_TRUE(Player.Play(ws::TStep::EnterNumber(Control, Value)));
    }
};

TEST_F(ExportTest, TheChartIsWrittenInEveryFormOnWhitePaper) {
    PlayFirstStart();
    Window->SetSkin("Dark");
    for (const char* Name : {"c.png", "c.svg", "c.pdf"}) {
        Dialogs->SaveFile = FileNamed(Name);
        Window->Commands().Run("file.export-chart");
        EXPECT_TRUE(Window->Status().Hint().contains(Name)) << ws::FromQt(Window->Status().Hint());
    }
    const QImage Png(FileNamed("c.png"));
    ASSERT_FALSE(Png.isNull());
    EXPECT_EQ(Png.pixelColor(2, 2), QColor(Qt::white));
    EXPECT_GT(Inked(Png), 1000);
    QSvgRenderer Svg(FileNamed("c.svg"));
    ASSERT_TRUE(Svg.isValid());
    QImage Drawn(Svg.defaultSize(), QImage::Format_RGB32);
    Drawn.fill(Qt::white);
    QPainter Painter(&Drawn);
    Svg.render(&Painter);
    Painter.end();
    EXPECT_GT(Inked(Drawn), 500);
    EXPECT_FALSE(Content(FileNamed("c.svg")).contains("<image"));  // lines, not pixels
    EXPECT_TRUE(Content(FileNamed("c.pdf")).startsWith("%PDF"));
    EXPECT_TRUE(Content(FileNamed("c.pdf")).contains("%%EOF"));
    Window->SetSkin("Light");
}

TEST_F(ExportTest, AnUnknownFormAndAFolderThatIsNotThereAreSaid) {
    PlayFirstStart();
    Dialogs->SaveFile = FileNamed("c.bmp");
    Window->Commands().Run("file.export-chart");
    ASSERT_EQ(Dialogs->Told.size(), 1u);
    EXPECT_NE(Dialogs->Told[0].find("c.bmp"), fw::Text::npos);
    EXPECT_FALSE(QFile::exists(FileNamed("c.bmp")));
    Dialogs->SaveFile = FileNamed("nowhere/c.png");
    Window->Commands().Run("file.export-chart");
    Dialogs->SaveFile = FileNamed("nowhere/t.csv");
    Window->Commands().Run("file.export-table");
    ASSERT_EQ(Dialogs->Told.size(), 3u);
    EXPECT_NE(Dialogs->Told[2].find("nowhere/t.csv"), fw::Text::npos);
}

TEST_F(ExportTest, TheFocusedTableIsWrittenWholeForOtherPrograms) {
    PlayFirstStart();
    ASSERT_TRUE(Workstation->SetNumberFormat("de_DE"));
    Dialogs->SaveFile = FileNamed("t.csv");
    Detail().setFocus();
    Window->Commands().Run("file.export-table");
    const auto Lines = Content(FileNamed("t.csv")).split('\n');
    ASSERT_EQ(Lines.size(), Detail().GetRowCount() + 2);  // the head, and nothing after the last line
    EXPECT_EQ(Lines[1].split(',').size(), 2);
    EXPECT_EQ(Lines[1].split(',')[0], "24000");
    Grid().setFocus();
    Window->Commands().Run("file.export-table");
    const auto Legs = Content(FileNamed("t.csv")).trimmed().split('\n');
    ASSERT_EQ(Legs.size(), 5);  // four legs, not the input row
    EXPECT_TRUE(Legs[1].startsWith("HSI25000X6,Buy,")) << Legs[1].constData();
    Workstation->SetNumberFormat("C");
}

TEST_F(ExportTest, ACancelledExportLeavesTheFormerFile) {
    fw::TFrame& Frame = PlayFirstStart();
    Enter(Frame, "edtInterval", 0.01);
    Click("Calculate");
    ASSERT_EQ(Detail().GetRowCount(), 500'001);
    QFile Former(FileNamed("t.csv"));
    ASSERT_TRUE(Former.open(QIODevice::WriteOnly));
    Former.write("former");
    Former.close();
    Dialogs->SaveFile = FileNamed("t.csv");
    Detail().setFocus();
    QTimer::singleShot(0, [] {
        for (QWidget* Each : QApplication::topLevelWidgets())
            if (auto* Bar = qobject_cast<QProgressDialog*>(Each)) Bar->cancel();
    });
    Window->Commands().Run("file.export-table");
    EXPECT_EQ(Content(FileNamed("t.csv")), "former");
    EXPECT_TRUE(Window->Status().Hint().contains("cancelled")) << ws::FromQt(Window->Status().Hint());
}

TEST_F(ExportTest, AViewIsPrintedAndALongTableIsAskedAbout) {
    fw::TFrame& Frame = PlayFirstStart();
    Dialogs->PrintFile = FileNamed("p.pdf");
    Window->Commands().Run("file.print");
    EXPECT_TRUE(Dialogs->Asked.empty());
    const QByteArray Short = Content(FileNamed("p.pdf"));
    EXPECT_TRUE(Short.startsWith("%PDF"));
    const auto Pages = [](const QByteArray& Pdf) { return Pdf.count("/Type /Page\n"); };
    Enter(Frame, "edtInterval", 5);
    Click("Calculate");
    Dialogs->Choice = -1;
    QFile::remove(FileNamed("p.pdf"));
    Window->Commands().Run("file.print");
    ASSERT_EQ(Dialogs->Asked.size(), 1u);
    EXPECT_NE(Dialogs->Asked[0].find("1,001"), fw::Text::npos) << Dialogs->Asked[0];
    EXPECT_FALSE(QFile::exists(FileNamed("p.pdf")));
    Dialogs->Choice = 0;
    Window->Commands().Run("file.print");
    const QByteArray Few = Content(FileNamed("p.pdf"));
    Dialogs->Choice = 1;
    Window->Commands().Run("file.print");
    EXPECT_EQ(Pages(Few), 1);
    EXPECT_GT(Pages(Content(FileNamed("p.pdf"))), 5);
    Enter(Frame, "edtInterval", 0.1);
    Click("Calculate");
    Window->Commands().Run("file.print");
    EXPECT_NE(Dialogs->Asked.back().find("20,000"), fw::Text::npos) << Dialogs->Asked.back();
}

}  // namespace gui
