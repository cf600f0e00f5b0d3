#pragma once
// A propos de Maroval : la version, et une porte de maintenance (Ctrl+V sur le bouton)
// qui lance la vérification de la comptabilité.

#include "ui/EcranModal.h"

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class APropos;
}

namespace ecran {

class APropos : public ui::EcranModal {
    Q_OBJECT
public:
    explicit APropos(QWidget* parent = nullptr);
    ~APropos() override;

    // La vérification des livres ; vide tant que le moteur d'écriture ne la livre pas.
    using Verificateur = std::function<bool()>;
    static Verificateur VerificationLivree();
    // Pour les tests : une autre vérification ; une fonction vide fait comme si le moteur ne
    // la livrait pas, rien (nullopt) rend celle du moteur.
    static void FixerVerification(std::optional<Verificateur> verification);

public slots:
    void Form_Load();
    void Command1_Click();
    void Command1_KeyDown(int cle, int modificateurs);

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    std::unique_ptr<Ui::APropos> ui;
};

} // namespace ecran
