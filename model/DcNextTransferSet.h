// The Next_DSTransfer_Set object of an ICC, through which a client asks for a
// free transfer set.
#pragma once

#include "model/DcDO.h"

class DcNextTransferSet : public DcDO {
    Q_OBJECT
public:
    // Named "Next_DSTransfer_Set"; the members come from InitVar.
    explicit DcNextTransferSet(QObject* parent = nullptr);
    ~DcNextTransferSet() override;

    // Name of the transfer set taken last by FindFreeTS.
    std::string CurName;

    QString ClassName() override;
    // Takes "name"; ignores all others.
    bool SetAttFromStr(const std::string& attribute, const std::string& value) override;
    QString ToXML(int indent) override;

    // Makes Scope, DomainName and Name.
    void InitVar();
    // Takes the last transfer set of the owning ICC that is not Used.
    bool FindFreeTS();
};
