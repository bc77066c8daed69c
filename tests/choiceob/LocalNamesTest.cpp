// Names typed in a dialog under a locale other than UTF-8.
#include "common/FormFixture.h"
#include "common/ModelLookup.h"

#include "dialogs/ChoiceObj.h"
#include "form/CfgIecArven.h"
#include "model/ICCPTypes_Nat.h"
#include "views/SomeModelsIED.h"

#include <QTextCodec>

using LocalNames = FormTest;

TEST_F(LocalNames, AddedDataSetRowShowsTheTypedNameAsTheRebuiltListDoes) {
    OpenForm(p.unit, [&](CfgArvenSR* f) {
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("KOI8-R"));
        f->tVIed->setCurrentIndex(RowOf(*f->pTreeIedModel, ICC(1)));
        DialogScript<FChoiceOb> script({[](FChoiceOb* d) {
            d->lWObjects->setCurrentRow(0);
            emit d->lWObjects->itemClicked(d->lWObjects->item(0));
            d->lWWhere->setCurrentRow(1);
            d->lEName->setText("Свой_набор");
            d->accept();
        }});
        const int listed = f->lWInfo->count();
        f->OnAddOb();
        ASSERT_EQ(f->lWInfo->count(), listed + 1);
        EXPECT_EQ(f->lWInfo->item(listed)->text(), "ICC_1/Свой_набор");
        EXPECT_EQ(ICC(1)->DataSets.Strings(ICC(1)->DataSets.Count - 1), "\xf3\xd7\xcf\xca_"
                                                                        "\xce\xc1\xc2\xcf\xd2");
        f->UpDateFullDSList();
        EXPECT_EQ(f->lWInfo->findItems("ICC_1/Свой_набор", Qt::MatchExactly).size(), 1);
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    });
}
