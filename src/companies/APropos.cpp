#include "companies/APropos.h"

#include "posting/Verification.h"
#include "session/Session.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui_APropos.h"

#include <QDir>
#include <QKeyEvent>

namespace ecran {

namespace {

APropos::Verificateur& VerificationFixee() {
    static APropos::Verificateur v;
    return v;
}

} // namespace

void APropos::FixerVerification(Verificateur verification) {
    VerificationFixee() = std::move(verification);
}

APropos::APropos(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::APropos>()) {
    ui->setupUi(this);
    ui->Command1->installEventFilter(this);
    connect(ui->Command1, &QPushButton::clicked, this, &APropos::Command1_Click);
    Form_Load();
}

APropos::~APropos() = default;

void APropos::Form_Load() {
    ui->LBVersion->setText(QStringLiteral("Version %1").arg(QStringLiteral(MAROVAL_VERSION)));
    ui->Command1->setFocus(Qt::OtherFocusReason);
}

void APropos::Command1_Click() {
    Retour();
}

bool APropos::eventFilter(QObject* objet, QEvent* evenement) {
    if (objet == ui->Command1 && evenement->type() == QEvent::KeyPress) {
        const auto* touche = static_cast<QKeyEvent*>(evenement);
        Command1_KeyDown(touche->key(), static_cast<int>(touche->modifiers()));
        if (touche->key() == Qt::Key_V && (touche->modifiers() & Qt::ControlModifier)) return true;
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

void APropos::Command1_KeyDown(int cle, int modificateurs) {
    // Porte de maintenance : elle n'est pas pour l'utilisateur, rien ne la montre à l'écran.
    if (cle != Qt::Key_V || !(modificateurs & Qt::ControlModifier)) return;
    if (ui::Boite(QStringLiteral("Voulez-vous lancer la fonction de vérification de la "
                                 "comptabilité ?"),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;
    const bool correcte =
        VerificationFixee() ? VerificationFixee()() : static_cast<bool>(Verification());
    const QString resultat = correcte ? QStringLiteral("La vérification est correcte")
                                      : QStringLiteral("Erreur dans la vérification");
    if (ui::Boite(resultat + QStringLiteral("\n\nVoulez-vous afficher le texte de la "
                                            "vérification ?"),
                  QStringLiteral("Maroval"),
                  correcte ? ui::Icone::Information : ui::Icone::Exclamation,
                  ui::Boutons::OuiNon) == ui::Reponse::Oui)
        ui::OuvrirFichier(QDir(session().DossierDonnees).filePath(QStringLiteral("verif.txt")));
}

} // namespace ecran
