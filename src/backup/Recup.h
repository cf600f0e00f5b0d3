#pragma once
// Reprise après un arrêt brutal pendant l'écriture des livres : remise en état automatique
// par les images, ou restauration d'une sauvegarde.

#include "ui/EcranModal.h"

#include <functional>

namespace Ui {
class Recup;
}

namespace ecran {

class Recup : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Recup(QWidget* parent = nullptr);
    ~Recup() override;

    // Remplace l'écran de sauvegarde et de restauration montré par BResto (essais) ;
    // vide : l'écran Backup.
    static std::function<void()>& MontrerBackup();

    QString CleRecup() const { return cle; }
    double DerNumRecup() const { return derNum; }

public slots:
    void Form_Load();
    void BRecup_Click();
    void BResto_Click();
    void done(int resultat) override;
    // Seuls les deux boutons font quitter l'écran.
    void reject() override {}

protected:
    void closeEvent(QCloseEvent* evenement) override;

private:
    void Sortir();

    Ui::Recup* forme;
    QString cle;
    double derNum = 0;
    bool sortieAutorisee = false;
};

// Montre Recup de façon modale (démarrage sur le marqueur 2).
void MontrerRecup();

} // namespace ecran
