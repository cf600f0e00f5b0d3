#include "entry/SessionSaisie.h"

QString& CleMenuSaisie() {
    static QString v;
    return v;
}

QString& LigneMenuSaisie() {
    static QString v;
    return v;
}

QString& JournalSaisie() {
    static QString v;
    return v;
}

bool& EcriturePassee() {
    static bool v = false;
    return v;
}
