// SPDX-License-Identifier: MIT
#pragma once

#include "agents/agent.h"

#include <array>

namespace tolvane::backend {

/// Matches a message that contains one of `keywords` and none of `excludedWords`, both separated by
/// spaces and in lower case. A rule that closes the ticket does not match a question. Replies may
/// use inline Markdown; "{hours}" is replaced by the opening hours.
struct Rule
{
    std::string_view keywords;
    std::string_view excludedWords;
    Effect effect = Effect::None;
    std::string_view ai;
    std::string_view human;
};

inline constexpr std::string_view greetings =
    "hi hello hey greetings morning hallo moin servus hola buenas bonjour salut ciao hej";

/// The first rule that matches is used.
inline constexpr std::array<Rule, 7> rules = {{
    {.keywords = "human humans person people agent representative operator colleague"
                 " mensch menschen mitarbeiter mitarbeiterin berater beraterin"
                 " humano humana persona agente operador humain humaine personne conseiller"
                 " umano operatore mens medewerker människa",
     .excludedWords = "",
     .effect = Effect::HandOver,
     .ai = "Of course. I am handing you over to a colleague, who will be here in a moment.",
     .human = "You are talking to a person already: I am *Maya*, and I stay with you until this "
              "is solved."},
    {.keywords = "thanks thank thx bye goodbye close solved resolved"
                 " danke tschüss gelöst gracias adiós merci grazie bedankt tack",
     .excludedWords =
         "not isn doesn didn hasn haven wasn won cannot but still nicht noch aber pas mais"
         " pero ma",
     .effect = Effect::Close,
     .ai = "You are welcome! I am closing this conversation; write again whenever you need me, "
           "and it opens again.",
     .human = "Glad that this is solved. I am closing our conversation; write again at any "
              "time. Have a good day!"},
    {.keywords = "refund refunds refunded money return returns rückerstattung reembolso"
                 " remboursement",
     .excludedWords = "",
     .ai = "You can return an item within **30 days**. Once it is back with us, the money is on "
           "its way within *5 working days*, by your original payment method.",
     .human = "I will look into the refund. Please tell me your *order number* if it is not in "
              "this conversation yet."},
    {.keywords = "delivery deliver delivered shipping shipment parcel package order tracking"
                 " lieferung paket bestellung envío pedido paquete livraison colis commande",
     .excludedWords = "",
     .ai = "A delivery takes **2 to 4 working days**. The link in your order confirmation shows "
           "where the parcel is.",
     .human = "I am asking the carrier where the parcel is and come back to you here."},
    {.keywords = "password passwords login signin account passwort anmelden konto contraseña cuenta"
                 " passe compte",
     .excludedWords = "",
     .ai = "Choose `Forgot password` where you sign in. The mail with the link arrives within "
           "*a few minutes*; please check your spam folder, too.",
     .human = "I have sent a link for a *new password* to the address of your account."},
    {.keywords = "hours opening open available schedule weekend öffnungszeiten horario horaires",
     .excludedWords = "",
     .ai = "My colleagues are available **{hours}**. I am available around the clock.",
     .human = "We are available **{hours}**."},
    {.keywords = greetings,
     .excludedWords = "",
     .ai = "I am the *assistant* here. What can I do for you?",
     .human = "What can I do for you?"},
}};

/// Used when no rule matches.
inline constexpr Rule fallbackRule = {
    .keywords = "",
    .excludedWords = "",
    .ai = "I can tell you about *deliveries*, *refunds*, your *password* and our *opening hours*. "
          "Write **human** to talk to a person instead.",
    .human = "Thank you, I have noted that and look into it now.",
};

} // namespace tolvane::backend
