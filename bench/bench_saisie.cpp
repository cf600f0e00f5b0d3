// Mesure : saisie logique sur une comptabilité générée de 100 000 lignes. Pour une suite de
// factures du menu 11 passées par les écrans (ChoixCpt, SaisQuad), le temps du clic sur
// "&OK" à l'écran prêt pour la suivante (écriture, retour et rappel des comptes), et celui
// de "Suivant->" à SaisQuad prêt (numéro proposé par le maximum d'Ecriture compris).

#include "Generateur.h"
#include "entry/ChoixCpt.h"
#include "entry/SaisQuad.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "store/Base.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>

namespace {

double Mediane(QList<qint64> v) {
    std::sort(v.begin(), v.end());
    if (v.isEmpty()) return 0;
    return v.size() % 2 ? v[v.size() / 2] : (v[v.size() / 2 - 1] + v[v.size() / 2]) / 2.0;
}

void Choisir(QWidget* ecran, const char* option) {
    auto* o = ecran->findChild<QRadioButton*>(QString::fromLatin1(option));
    o->click();
    auto* g = ecran->findChild<ui::Grille*>(QStringLiteral("Tree1"));
    g->FixerLigneCourante(0);
    QMetaObject::invokeMethod(ecran, "Command4_Click");
}

void Taper(QWidget* ecran, const char* liste, const QString& montant) {
    auto* g = ecran->findChild<ui::Grille*>(QString::fromLatin1(liste));
    if (g->NombreLignes() == 0) return;
    g->EditerCellule(0, 2);
    if (auto* e = qobject_cast<QLineEdit*>(g->Editeur())) e->setText(montant);
    g->ValiderEdition();
}

} // namespace

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    const int lignes = argc > 1 ? QByteArray(argv[1]).toInt() : 100000;
    const int factures = argc > 2 ? QByteArray(argv[2]).toInt() : 30;
    QTemporaryDir dossier;
    generateur::Options options;
    options.dossier = dossier.path();
    options.lignesVisees = lignes;
    const generateur::Resultat genere = generateur::Generer(options);
    generateur::OuvrirGenere(dossier.path());
    std::printf("Base générée : %d lignes d'Ecriture en %.1f s\n", genere.lignes, genere.secondes);

    session().CleMenuSaisie = QStringLiteral("11");
    session().EcriturePassee = false;
    Base().exec("DELETE FROM wSaisie");

    QList<qint64> apresOK, ouvertureSaisQuad;
    QElapsedTimer chrono;
    bool enCours = false;
    int faites = 0;
    ecran::ChoixCpt choix;
    choix.FixerDebutChaine(true);
    QTimer pilote;
    pilote.setInterval(0);
    QObject::connect(&pilote, &QTimer::timeout, [&] {
        if (enCours) return;
        QWidget* haut = QApplication::activeModalWidget();
        if (!haut) return;
        if (haut->objectName() == QLatin1String("ChoixCpt")) {
            if (chrono.isValid()) {
                apresOK << chrono.elapsed();
                chrono.invalidate();
            }
            enCours = true;
            QTimer::singleShot(0, [&, haut] {
                if (faites == factures) {
                    QMetaObject::invokeMethod(haut, "Command7_Click");
                } else {
                    if (faites == 0) {
                        Choisir(haut, "Option1");
                        Choisir(haut, "Option2");
                    }
                    Choisir(haut, "Option3");
                    enCours = false;
                    chrono.start();
                    QMetaObject::invokeMethod(haut, "Command3_Click");
                }
                enCours = false;
            });
        } else if (haut->objectName() == QLatin1String("SaisQuad")) {
            if (chrono.isValid()) {
                ouvertureSaisQuad << chrono.elapsed();
                chrono.invalidate();
            }
            enCours = true;
            QTimer::singleShot(0, [&, haut] {
                const int i = faites++;
                Taper(haut, "Tree1", QString::number(120 + i));
                Taper(haut, "Tree2", QStringLiteral("20"));
                Taper(haut, "Tree4", QString::number(100 + i));
                haut->findChild<QLineEdit*>(QStringLiteral("Text2"))
                    ->setText(QStringLiteral("Mesure %1").arg(i + 1));
                enCours = false;
                chrono.start();
                haut->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
            });
        }
    });
    pilote.start();
    choix.exec();
    pilote.stop();

    const int passees =
        Base().execAndGet("SELECT COUNT(*) FROM Ecriture WHERE LibEcr LIKE 'Mesure %'").getInt();
    std::printf("Factures passées par les écrans : %d (%d lignes)\n", faites, passees);
    std::printf("De \"&OK\" à ChoixCpt prêt : médiane %.1f ms, max %lld ms (%lld mesures)\n",
                Mediane(apresOK),
                static_cast<long long>(
                    apresOK.isEmpty() ? 0 : *std::max_element(apresOK.begin(), apresOK.end())),
                static_cast<long long>(apresOK.size()));
    std::printf("De \"Suivant->\" à SaisQuad prêt : médiane %.1f ms\n", Mediane(ouvertureSaisQuad));
    std::printf("Vérification des livres : %s\n", Verification() ? "juste" : "FAUSSE");
    FermerBase();
    return 0;
}
