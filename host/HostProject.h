// The stand-in host's project: a tree of objects with typed parameters, the
// host's rules for numbers, nesting and checks, and the fault injection and
// call counts that tests use on the table of services.
#pragma once

#include "host/HostObject.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QVector>

class HostProject {
public:
    // Which calls of a parameter failParam makes fail.
    enum FaultOp { FailRead = 1, FailWrite = 2, FailInfo = 4, FailAll = 7 };

    HostProject() = default;
    ~HostProject();
    HostProject(const HostProject&) = delete;
    HostProject& operator=(const HostProject&) = delete;

    const QList<HostObject*>& roots() const { return m_roots; }
    // Makes an object with the parameters of its kind. A number of 0 or less
    // takes freeNumber. Null when `parent` may not hold the kind (a null
    // parent holds projects and directions).
    HostObject* create(HostObject* parent, int kind, int number = 0,
                       const QByteArray& moduleKey = "cfghost");
    // Deletes the object and everything below it.
    void remove(HostObject* ob);
    void clear();

    // Every object of the kind, depth first in child order.
    QList<HostObject*> findAll(int kind) const;
    HostObject* findFirst(int kind) const;

    // Whether an object of `kind` may stand under `parent`.
    static bool canHold(const HostObject* parent, int kind);
    // The number that a new child of `kind` gets: one above the highest in
    // use. Tags count over all tags of the unit, folders over all folders of
    // the unit, other kinds over their siblings of that kind.
    int freeNumber(const HostObject* parent, int kind) const;
    // True when a number parameter lies outside the range of its
    // description.
    static bool inError(const HostObject* ob);

    // The table of services; the same for every project, since a handle
    // leads to its project.
    static TCfgSlotFn* table();

    // Fault injection: a failing slot gives its failure result; a failing
    // parameter fails the reads, writes or descriptions asked for.
    void failSlot(int slot, bool fail = true);
    void failParam(const QByteArray& name, int ops = FailAll);
    void clearFaults();
    // With `mixed` set, cfgObChildList stores every child, whatever kind was
    // asked for, as a careless host would.
    void mixChildLists(bool mixed) { m_mixedLists = mixed; }
    bool mixedChildLists() const { return m_mixedLists; }
    bool slotFails(int slot) const { return m_failSlots.contains(slot); }
    bool paramFails(const QByteArray& name, FaultOp op) const {
        return m_failParams.value(name) & op;
    }

    // Calls of each slot made with a handle of this project.
    int calls(int slot) const { return slot >= 0 && slot < m_calls.size() ? m_calls[slot] : 0; }
    void countCall(int slot) {
        if (slot < 0)
            return;
        if (slot >= m_calls.size())
            m_calls.resize(slot + 1);
        ++m_calls[slot];
    }
    void resetCalls() { m_calls.clear(); }

private:
    QList<HostObject*> m_roots; // owned
    QSet<int> m_failSlots;
    QHash<QByteArray, int> m_failParams;
    QVector<int> m_calls; // by slot
    bool m_mixedLists = false;
};
