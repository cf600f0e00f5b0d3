#include "support/GestesSaisie.h"

#include "support/ExerciceEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"
#include "support/SessionEssai.h"

#include "entry/Choisais.h"
#include "ui/Grille.h"

#include <QLineEdit>
#include <QStringList>
#include <QtTest>

namespace essai {

QString ListeDuCode(const QString& code) {
    static const QStringList codes = {"E1", "R1", "E2", "R2"};
    return QStringLiteral("Tree%1").arg(codes.indexOf(code.trimmed()) + 1);
}

bool TaperMontant(QWidget* ecran, const QString& numero, const QString& montant) {
    const QString liste = ListeDuCode(LireCpt(numero).ErCpt);
    auto* g = ecran->findChild<ui::Grille*>(liste);
    if (!g) return false;
    for (int i = 0; i < g->NombreLignes(); ++i) {
        if (g->Texte(i, 0).trimmed() != numero) continue;
        support::CliquerCellule(g, i, 0);
        return support::TaperDansCellule(g, montant);
    }
    return false;
}

} // namespace essai

namespace essai {

bool ChoisirCompte(QWidget* e, const QString& numero) {
    auto* g = e->findChild<ui::Grille*>(QStringLiteral("Tree1"));
    for (int i = 0; g && i < g->NombreLignes(); ++i)
        if (g->Texte(i, 0).trimmed() == numero) return support::CliquerCellule(g, i, 0, true);
    support::SignalerEchec(QStringLiteral("Compte %1 absent de Tree1").arg(numero));
    return false;
}

QString SaisirOperation(int famille, int ligne, const QList<CaseOperation>& cases,
                        const QString& libelle) {
    support::PiloteModal p;
    p.Attendre("Choisais", support::Cliquer("Command1"))
        .Attendre("Saislog",
                  [&](QWidget* w) {
                      support::ChoisirLigneListe(w, "List1", famille - 1);
                      support::ChoisirLigneListe(w, "List2", ligne - 1);
                      support::CliquerBouton(w, "Command1");
                  })
        .Attendre("ChoixCpt",
                  [&](QWidget* w) {
                      for (const CaseOperation& c : cases) {
                          CliquerOption(w, qPrintable(QStringLiteral("Option%1").arg(c.option)));
                          ChoisirCompte(w, c.numero);
                      }
                      support::CliquerBouton(w, "Command3");
                  })
        .Attendre("SaisQuad",
                  [&](QWidget* w) {
                      for (const CaseOperation& c : cases)
                          if (!TaperMontant(w, c.numero, c.montant))
                              support::SignalerEchec("Montant refusé pour " + c.numero);
                      QTest::keyClicks(w->findChild<QLineEdit*>("Text2"), libelle);
                      support::CliquerBouton(w, "Command1");
                  })
        .Attendre("ChoixCpt", support::Cliquer("Command7"));
    p.Demarrer();
    ecran::Choisais e;
    e.FixerDebutChaine(true);
    e.exec();
    return p.Reussi() ? QString() : p.Echec();
}

} // namespace essai
