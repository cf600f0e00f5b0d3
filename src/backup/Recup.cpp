#include "backup/Recup.h"

#include "backup/Backup.h"
#include "base/Valeur.h"
#include "posting/Securite.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui_Recup.h"

#include <QCloseEvent>

namespace ecran {

Recup::Recup(QWidget* parent) : ui::EcranModal(parent), forme(new Ui::Recup) {
    FixerContexteAide(21);
    forme->setupUi(this);
    connect(forme->BRecup, &QPushButton::clicked, this, &Recup::BRecup_Click);
    connect(forme->BResto, &QPushButton::clicked, this, &Recup::BResto_Click);
    Form_Load();
}

Recup::~Recup() {
    delete forme;
}

std::function<void()>& Recup::MontrerBackup() {
    static std::function<void()> montrer;
    return montrer;
}

void Recup::Form_Load() {
    // La reprise porte sur l'exercice nommé par le marqueur, quel que soit le dernier choisi.
    const MarqueurLu m = LireMarqueur();
    derNum = m.derNum;
    cle = m.cle;
    Session& s = session();
    s.ExerciceCourant = static_cast<std::int16_t>(ValeurNumerique(cle.right(4)));
    s.NumSocCourante = static_cast<std::int16_t>(ValeurNumerique(cle.left(2)));
    table::Societe societe;
    if (LireSociete(s.NumSocCourante, societe)) s.NomSocCourante = societe.Nom.trimmed().left(30);
}

void Recup::BRecup_Click() {
    RestituerImages(cle, derNum);
    if (!Verification()) {
        ui::Boite(QStringLiteral("Maroval ne peut récupérer votre comptabilité automatiquement.\n"
                                 "Utilisez le bouton Restauration."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    ui::Boite(QStringLiteral("La récupération s'est effectuée correctement.\n"
                             "Vous pouvez maintenant continuer à travailler."),
              QStringLiteral("Maroval"), ui::Icone::Information);
    Sortir();
}

void Recup::BResto_Click() {
    // Pas de sauvegarde par-dessus des livres incohérents tant que l'écran est là.
    session().SauvegardeAutorisee = false;
    if (MontrerBackup())
        MontrerBackup()();
    else
        OuvrirBackup(this);
    if (Verification()) {
        Sortir();
        return;
    }
    ui::Boite(QStringLiteral("Maroval a détecté une incohérence dans votre comptabilité , faites "
                             "une restauration à partir d'une sauvegarde antérieure"),
              QStringLiteral("Maroval"), ui::Icone::Critique);
}

void Recup::Sortir() {
    sortieAutorisee = true;
    done(ui::EcranModal::CodeOK);
}

void Recup::done(int resultat) {
    session().SauvegardeAutorisee = true;
    ui::EcranModal::done(resultat);
}

void Recup::closeEvent(QCloseEvent* evenement) {
    if (sortieAutorisee)
        evenement->accept();
    else
        evenement->ignore();
}

void MontrerRecup() {
    Recup r;
    r.exec();
}

} // namespace ecran
