#include "chart/CompteChoisi.h"

QString& CompteChoisi() {
    static QString compte;
    return compte;
}
