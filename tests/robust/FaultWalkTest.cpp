// Every host call of the form's roads made to fail in turn, with each fault
// that fits its slot: no crash, no hang, and no message but those that the
// failure handling of the road tells.
#include "common/FormFixture.h"

#include "dialogs/AddVar.h"
#include "dialogs/ChoiceDS.h"
#include "form/CfgIecArven.h"
#include "host/HostTable.h"
#include "plugin/CfgIecArvenlib.h"
#include "views/CpropNode.h"
#include "views/SomeModelsIED.h"

#include <QInputDialog>
#include <QListWidget>
#include <QStatusBar>

using FaultWalk = FormTest;

TEST_F(FaultWalk, EveryCallOfEachRoadFails) {
    const QStringList told = {"|Неудачная запись в блоб-поле",
                              "|Недопустимое значение ICC",
                              "Сообщение|Не могу найти родительский объект",
                              "Сообщение|Отсутствует базовая папка",
                              "Сообщение|Невозможно создать папку",
                              "Сообщение|Ошибка. По-видимому нарушена уникальность имен"};
    const QList<QPair<const char*, std::function<void(CfgArvenSR*)>>> roads = {
        {"open and close", {}},
        {"create folder", [](CfgArvenSR* f) { f->OnCreateFolg(); }},
        {"add variable", [](CfgArvenSR* f) { f->OnAddVar(); }},
        {"add to data set", [](CfgArvenSR* f) { f->OnAddOb2DS(); }},
        {"delete", [](CfgArvenSR* f) { f->OnDelOb(); }},
        {"property edit", [this](CfgArvenSR* f) { EditProp(f, p.tagState, "domain", "2", "1"); }},
        {"save to file", [](CfgArvenSR* f) { f->OnSaveIed(); }}};
    long total = 0, runs = 0;
    // The first opening builds the form; from then on no painting of it reads
    // the host while the calls are counted.
    OpenForm(p.unit);
    FCfgArvenSR->setUpdatesEnabled(false);
    for (const auto& road : roads) {
        const long injected = CfgHostWalkFaults([&] {
            // A fresh project, so that every run meets the same tags, and a new
            // file name, so that the file dialog asks nothing.
            p.~SmallProject();
            new (&p) SmallProject;
            boxes.clear();
            fileAnswers = QStringList(dir.filePath(QString::number(++runs) + ".blt"));
            DialogScript<QInputDialog> folder({[](QInputDialog* d) { d->accept(); }});
            DialogScript<GetVarFrm> var({[](GetVarFrm* d) {
                d->OnlistVADcliked(d->ui.listVAD->model()->index(0, 0)), d->accept();
            }});
            DialogScript<ChoiceDS> set(
                {[](ChoiceDS* d) { d->listWidget->setCurrentRow(1), d->accept(); }});
            long first = 1;
            QStringList texts;
            OpenForm(p.unit, [&](CfgArvenSR* f) {
                // Q1's variable current in the model tree, which has the focus.
                f->tVIed->setCurrentIndex(
                    NamedRow(f, "Q1_" + p.tagState->get("number").toString()));
                QApplication::setActiveWindow(f);
                f->tVIed->setFocus();
                f->statusBar->clearMessage(); // the unit's hint
                if (road.second)
                    first = CfgHostCalls() + 1, road.second(f);
                texts << "|" + f->statusBar->currentMessage();
                f->statusBar->clearMessage();
                p.unit->set("$DATARUN", QByteArray("untouched"));
            });
            // A blob write refused at the close leaves the blob that was there.
            texts << "|" + FCfgArvenSR->statusBar->currentMessage();
            EXPECT_TRUE(texts.last() != told[0] || Datarun(p.unit) == "untouched");
            for (const QString& text : texts + BoxTexts())
                EXPECT_TRUE(text == "|" || told.contains(text))
                    << road.first << ": " << text.toStdString();
            return first;
        });
        printf("%s: %ld faults injected\n", road.first, injected);
        EXPECT_GT(injected, 0) << road.first;
        total += injected;
    }
    printf("faults injected: %ld\n", total);
    FCfgArvenSR->setUpdatesEnabled(true);
}
