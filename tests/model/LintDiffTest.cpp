// The model lint and the model diff on small hand-made models.
#include "common/ModelWorld.h"
#include "model/ModelDiff.h"
#include "model/ModelFile.h"
#include "model/ModelLint.h"

namespace {

// A model text: the VCC holds body, the types follow it.
QByteArray Model(const std::string& body) {
    return QByteArray::fromStdString("<DcTree><DcVCC name=\"VCC_1\">" + body + "</DcVCC>" +
                                     kModelTypes + "</DcTree>");
}

// An ICC holding body.
std::string Icc(const std::string& body, const char* name = "ICC_1") {
    return std::string("<DcLD name=\"") + name + "\">" + body + "</DcLD>";
}

// A transfer set written as the form writes it: the reader alone would take
// each flagAbility for the value.
std::string TransferSet(const char* interval, const char* buffer, const char* integrity,
                        const char* conditions, const char* rbe, const char* dataSet = "") {
    std::string text = "<DcTransSet name=\"TS_1\"><DcDO name=\"DataSetName\"><DcDA name=\"Name\" "
                       "type=\"VISIBLE_STRING32\" svalue=\"" +
                       std::string(dataSet) +
                       "\" flagAbility=\"0\"/><DcDA name=\"DomainName\" "
                       "type=\"VISIBLE_STRING32\" svalue=\"ICC_1\" flagAbility=\"0\"/></DcDO>";
    const char* values[][3] = {{"Interval", "INT16", interval},
                               {"BufferTime", "INT16", buffer},
                               {"IntegrityCheck", "INT16", integrity},
                               {"DSConditionsRequested", "BitString5", conditions},
                               {"RBE", "BOOL", rbe}};
    for (const auto& v : values)
        text += std::string("<DcDA name=\"") + v[0] + "\" type=\"" + v[1] + "\" svalue=\"" + v[2] +
                "\" flagAbility=\"0\"/>";
    return text + "</DcTransSet>";
}

const std::string kA = "<DcDA name=\"A\" type=\"INT32\"/>";
const std::string kSet = "<DcDataSet name=\"DS_1\"><ElemDS name=\"ICC_1/A\"/></DcDataSet>";

struct LintRow {
    std::string body;
    int pdu;
    QStringList lines;
};

void ExpectLint(const std::vector<LintRow>& rows) {
    DcDTTP* const formTypes = pDcDTTP;
    for (const LintRow& row : rows) {
        ModelFile model;
        QString error;
        ASSERT_TRUE(model.ReadText(Model(row.body), error)) << qPrintable(error);
        EXPECT_EQ(pDcDTTP, formTypes);
        const LintReport report = LintModel(model, row.pdu);
        EXPECT_EQ(report.lines, row.lines) << row.body;
        EXPECT_EQ(report.errors, row.lines.filter("error: ").size());
    }
}

} // namespace

TEST_F(ModelWorldTest, LintNamesIdentifiersDuplicatesAndReservedNames) {
    const std::string longName(33, 'L');
    ExpectLint({
        {"<DcDA name=\"Good_1\" type=\"INT16\"/><DcDA "
         "name=\"Transfer_Set_Counter_of_the_whole_station\" "
         "type=\"INT16\"/><DcDA name=\"Supported_Features\" type=\"BitString12\"/>" +
             Icc("<DcDA name=\"Good_1\" type=\"INT16\"/>"),
         kDefaultPduBytes,
         {}},
        {"<DcDA name=\"1st\" type=\"INT16\"/><DcDA name=\"" + longName +
             "\" type=\"INT16\"/><DcDA name=\"Ток_1\" type=\"INT16\"/>",
         kDefaultPduBytes,
         {"error: 1st: mms-name: имя начинается с цифры",
          "error: " + QString::fromStdString(longName) + ": mms-name: имя длиннее 32 символов (33)",
          "error: Ток_1: mms-name: допустимы только латинские буквы, цифры и «_»"}},
        {Icc("<DcDA name=\"V\" type=\"INT16\"/><DcDA name=\"V\" type=\"INT32\"/><DcDA name=\"T\" "
             "type=\"INT16\"/><DcTransSet name=\"T\"/>") +
             Icc("", "ICC_1"),
         kDefaultPduBytes,
         {"error: ICC_1/V: duplicate: имя уже занято в домене ICC_1",
          "error: ICC_1/T: duplicate: имя уже занято в домене ICC_1",
          "error: ICC_1: duplicate: ICC с таким именем уже есть в модели"}},
        {"<DcDA name=\"Interval\" type=\"INT16\"/><DcDA name=\"Supported_Features\" "
         "type=\"INT16\"/>" +
             Icc("<DcDA name=\"Bilateral_Table_ID\" type=\"VISIBLE_STRING32\"/>"),
         kDefaultPduBytes,
         {"error: Interval: reserved: имя зарезервировано TASE.2",
          "error: Supported_Features: reserved: обязательная переменная TASE.2 должна иметь тип "
          "BitString12, а не INT16",
          "error: ICC_1/Bilateral_Table_ID: reserved: имя обязательной переменной VCC "
          "зарезервировано TASE.2"}},
    });
}

TEST_F(ModelWorldTest, LintDataSetsSizeEntriesAndReports) {
    // The four standard fields take 3 + 4 + 6 + (3 + 34 + 34 + 2) bytes, an INT32 6.
    const QString unreported = "warning: ICC_1/DS_%1: unreported: набор данных не назван ни в "
                               "одном наборе передачи, а свободных наборов передачи не осталось";
    const std::string second = "<DcDataSet name=\"DS_2\"><ElemDS name=\"ICC_1/A\"/></DcDataSet>";
    ExpectLint({
        {Icc(kA + "<DcTransSet name=\"TS_1\"/>" + kSet), 92, {}},
        {Icc(kA + "<DcTransSet name=\"TS_1\"/>" + kSet),
         91,
         {"error: ICC_1/DS_1: pdu-size: размер набора данных 92 байт больше PDU в 91 байт"}},
        {Icc(kA + "<DcTransSet name=\"TS_1\"/><DcDataSet name=\"DS_1\"><ElemDS "
                  "name=\"ICC_1/Gone\"/></DcDataSet>"),
         kDefaultPduBytes,
         {"warning: ICC_1/DS_1: dangling: элемент ICC_1/Gone не называет переменную"}},
        {Icc(kA + kSet), kDefaultPduBytes, {unreported.arg(1)}},
        // A named set needs no free transfer set; the VCC's sets take what the ICCs leave.
        {"<DcDA name=\"B\" type=\"INT16\"/><DcDataSet name=\"DS_V\"><ElemDS "
         "name=\"B\"/></DcDataSet>" +
             Icc(kA + TransferSet("0", "0", "0", "00100", "false", "DS_1") + kSet + second),
         kDefaultPduBytes,
         {unreported.arg(2), "warning: DS_V: unreported: набор данных не назван ни в одном наборе "
                             "передачи, а свободных наборов передачи не осталось"}},
        {"<DcDA name=\"B\" type=\"INT16\"/><DcDataSet name=\"DS_V\"><ElemDS "
         "name=\"B\"/></DcDataSet>" +
             Icc(kA + "<DcTransSet name=\"TS_1\"/><DcTransSet name=\"TS_2\"/>" + kSet),
         kDefaultPduBytes,
         {}},
    });
}

TEST_F(ModelWorldTest, LintTransferSetTimes) {
    const auto row = [](std::string set, QStringList lines) {
        return LintRow{Icc(set), kDefaultPduBytes, lines};
    };
    const QString at = "warning: ICC_1/TS_1: ";
    ExpectLint({
        row(TransferSet("10", "5", "0", "00100", "false"), {}),
        row(TransferSet("10", "10", "0", "10100", "false"),
            {at + "ts-buffer: буферное время 10 не меньше интервала 10"}),
        row(TransferSet("0", "0", "30", "00100", "false"),
            {at + "ts-integrity: проверка целостности задана без передачи по исключению (RBE)"}),
        row(TransferSet("0", "0", "30", "01100", "true"), {}),
        row(TransferSet("0", "0", "0", "11100", "true"),
            {at + "ts-period: условие IntervalTimeOut запрошено при нулевом интервале",
             at +
                 "ts-period: условие IntegrityTimeOut запрошено при нулевой проверке целостности"}),
    });
}

TEST_F(ModelWorldTest, DiffComparesDomainsVariablesSetsAndTransferSets) {
    const std::string b = "<DcDA name=\"B\" type=\"INT16\"/>";
    const struct {
        std::string before, after;
        QStringList lines;
    } rows[] = {
        {b + Icc(kA + kSet), b + Icc(kA + kSet), {}},
        {b + "<DcDA name=\"C\" type=\"INT16\"/>" + Icc(kA),
         "<DcDO name=\"B\" type=\"Data_RealQ\"/><DcDA name=\"D\" type=\"INT16\"/>" + Icc(kA) +
             Icc("", "ICC_2"),
         {"~ B: тип INT16 -> Data_RealQ", "- C: переменная INT16", "+ D: переменная INT16",
          "+ ICC_2: ICC"}},
        {Icc(kA + b + kSet + "<DcDataSet name=\"DS_2\"/>"),
         Icc(kA + b + "<DcDataSet name=\"DS_1\"><ElemDS name=\"ICC_1/B\"/></DcDataSet>"),
         {"- ICC_1/DS_1: элемент ICC_1/A", "+ ICC_1/DS_1: элемент ICC_1/B",
          "- ICC_1/DS_2: набор данных, элементов 0"}},
        {Icc(TransferSet("10", "0", "0", "00100", "false")),
         Icc(TransferSet("20", "0", "0", "00100", "true", "DS_1") + "<DcTransSet name=\"TS_2\"/>"),
         {"~ ICC_1/TS_1: DataSetName$Name  -> DS_1", "~ ICC_1/TS_1: Interval 10 -> 20",
          "~ ICC_1/TS_1: RBE false -> true", "+ ICC_1/TS_2: набор передачи"}},
    };
    for (const auto& row : rows) {
        ModelFile before, after;
        QString error;
        ASSERT_TRUE(before.ReadText(Model(row.before), error) &&
                    after.ReadText(Model(row.after), error));
        EXPECT_EQ(DiffModels(before, after), row.lines) << row.after;
    }
    ModelFile broken;
    QString error;
    EXPECT_FALSE(broken.ReadText("<DcTree><DcVCC>", error));
    EXPECT_TRUE(error.startsWith("ошибка разбора XML")) << qPrintable(error);
    EXPECT_FALSE(broken.ReadText(kModelTypes, error));
    EXPECT_EQ(error, "в тексте нет модели (элемента DcVCC)");
}
