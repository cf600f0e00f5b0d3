// Le compresseur des disquettes, lancé par sauveg.sh : maroval-szdd <entrée> <sortie>. La
// dernière lettre du nom d'entrée est gardée dans l'en-tête, comme le faisait COMPRESS.
#include "base/Szdd.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "Emploi : maroval-szdd <entrée> <sortie>\n");
        return 2;
    }
    const QString entree = QFile::decodeName(argv[1]);
    QFile f(entree);
    if (!f.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "Lecture impossible : %s\n", argv[1]);
        return 1;
    }
    const QString nom = QFileInfo(entree).fileName();
    const char derniere = nom.isEmpty() ? 0 : nom.back().toLatin1();
    const QByteArray compresse = CompresserSzdd(f.readAll(), derniere);
    QSaveFile sortie(QFile::decodeName(argv[2]));
    if (compresse.isEmpty() || !sortie.open(QIODevice::WriteOnly) ||
        sortie.write(compresse) != compresse.size() || !sortie.commit()) {
        std::fprintf(stderr, "Écriture impossible : %s\n", argv[2]);
        return 1;
    }
    return 0;
}
