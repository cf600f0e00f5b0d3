#pragma once
// Les écrans montrés de façon modale forment une pile dont seul le sommet est visible :
// un écran cache celui du dessous quand il se charge ; "<-Retour" le décharge et rend
// l'écran du dessous visible ; "&Quitter" le décharge avec ceux du dessous, du haut vers
// le bas, en laissant passer les événements en attente entre deux déchargements.

#include <QDialog>
#include <QList>

class QEventLoop;

namespace ui {

namespace PileModale {
void FermerTout();
}

class EcranModal : public QDialog {
    Q_OBJECT
public:
    // Codes rendus par exec().
    enum Code { CodeRetour = QDialog::Rejected, CodeOK = QDialog::Accepted, CodeQuitter = 2 };

    explicit EcranModal(QWidget* parent = nullptr);
    ~EcranModal() override;

    // Montre l'écran de façon modale, cache l'écran du dessous et le remontre au retour
    // s'il n'a pas été déchargé entre-temps.
    int exec() override;

    // Premier écran d'une chaîne : "&Quitter" d'un écran au-dessus s'arrête à lui (inclus).
    void FixerDebutChaine(bool debut) { debutChaine = debut; }
    bool DebutChaine() const { return debutChaine; }
    // Un écran peut laisser visible celui du dessous (vrai par défaut : il le cache).
    void FixerMasquerDessous(bool masquer) { masquerDessous = masquer; }
    // Echap ne ferme l'écran que si on le veut (faux par défaut) ; Entrée n'actionne que
    // le bouton marqué par défaut (setDefault), jamais le bouton qui a le focus.
    void FixerEchapFerme(bool ferme) { echapFerme = ferme; }

    // Page d'aide de l'écran, que F1 ouvre ; 0 : celle d'un écran du dessous, sinon l'index.
    void FixerContexteAide(int contexte) { contexteAide = contexte; }
    int ContexteAide() const { return contexteAide; }

    bool Charge() const { return boucle != nullptr; }
    bool MasqueParPile() const { return masqueParPile; }
    // Vrai quand l'écran a été déchargé par un "&Quitter".
    bool Quitte() const { return quitte; }

public slots:
    // La page de l'écran (ou de l'écran du dessous qui en a une), sinon l'index de l'aide.
    void MontrerAide();
    void Retour();
    // Décharge cet écran et ceux du dessous jusqu'au début de la chaîne inclus (cet écran
    // seul s'il n'est dans aucune chaîne).
    void Quitter();
    // Décharge cet écran et niveaux - 1 écrans sous lui.
    void QuitterNiveaux(int niveaux);
    void done(int resultat) override;

protected:
    void hideEvent(QHideEvent* evenement) override;
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    void RetirerBoutonsParDefautImplicites();
    void Masquer();
    void Remontrer();
    void Decharger(const QList<EcranModal*>& ecrans);
    friend void PileModale::FermerTout();

    QEventLoop* boucle = nullptr;
    bool fini = false;
    bool masqueParPile = false;
    bool quitte = false;
    bool debutChaine = false;
    bool masquerDessous = true;
    bool echapFerme = false;
    int contexteAide = 0;
};

// Montre un écran de type T de façon modale au-dessus de parent, puis le décharge.
template <class T> void MontrerModal(QWidget* parent) {
    T ecran(parent);
    ecran.exec();
}

namespace PileModale {
// Ecrans chargés, du bas vers le haut.
QList<EcranModal*> Ecrans();
EcranModal* Sommet();
// Ferme toutes les fenêtres modales puis décharge tous les écrans, le plus haut d'abord
// (fin du programme, échec d'un test).
void FermerTout();
} // namespace PileModale

} // namespace ui
