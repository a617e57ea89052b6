<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>Library</name>
    <message>
        <source>main_title</source>
        <extracomment>Greeting at the top of the home screen. A waving hand follows at once, so it ends with a blank.</extracomment>
        <translation>Bonjour&#xa0;! </translation>
    </message>
    <message>
        <source>main_subtitle</source>
        <extracomment>Second line of the home screen, beneath the greeting.</extracomment>
        <translation>Comment pouvons-nous vous aider&#xa0;?</translation>
    </message>
    <message>
        <source>ticket_list_your_messages</source>
        <extracomment>Heading above the list of the customer's conversations.</extracomment>
        <translation>Vos messages</translation>
    </message>
    <message>
        <source>main_sender_customer_name</source>
        <extracomment>Stands as the sender's name on what the customer wrote. Alone, so with a capital.</extracomment>
        <translation>Vous</translation>
    </message>
    <message>
        <source>timeago_invalid</source>
        <extracomment>In place of an age, where the date of a message cannot be read.</extracomment>
        <translation>Date inconnue</translation>
    </message>
    <message>
        <source>timeago_now</source>
        <extracomment>Age of a message: less than a minute.</extracomment>
        <translation>À l’instant</translation>
    </message>
    <message>
        <source>timeago_more_than_a_week</source>
        <extracomment>Age of a message: a week or more.</extracomment>
        <translation>Il y a plus d’une semaine</translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_minutes</source>
        <extracomment>Age of a message: 1 to 59 minutes. Stands alone, so it begins like a sentence. Keep %Ln, the number, where the language says it.</extracomment>
        <translation>
            <numerusform>Il y a %Ln minute</numerusform>
            <numerusform>Il y a %Ln minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_hours</source>
        <extracomment>Age of a message: 1 to 24 hours. Stands alone, so it begins like a sentence. Keep %Ln, the number, where the language says it.</extracomment>
        <translation>
            <numerusform>Il y a %Ln heure</numerusform>
            <numerusform>Il y a %Ln heures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_days</source>
        <extracomment>Age of a message: 1 to 6 days. Stands alone, so it begins like a sentence. Keep %Ln, the number, where the language says it.</extracomment>
        <translation>
            <numerusform>Il y a %Ln jour</numerusform>
            <numerusform>Il y a %Ln jours</numerusform>
        </translation>
    </message>
    <message>
        <source>ticket_closed</source>
        <extracomment>In place of the field for writing, where support has ended the conversation.</extracomment>
        <translation>Cette conversation est terminée</translation>
    </message>
    <message>
        <source>ticket_ai_is_typing</source>
        <extracomment>Shown while the AI agent prepares an answer. Animated dots may follow, so there is no full stop.</extracomment>
        <translation>L’agent IA est en train d’écrire</translation>
    </message>
    <message>
        <source>accessibility_close</source>
        <extracomment>Read aloud: the button that closes the messenger.</extracomment>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>accessibility_unread</source>
        <extracomment>Read aloud: the dot on a conversation with messages that the customer has not seen.</extracomment>
        <translation>Non lue</translation>
    </message>
    <message>
        <source>accessibility_new_ticket</source>
        <extracomment>Read aloud: the button that begins a new conversation by writing a message.</extracomment>
        <translation>Écrire un nouveau message</translation>
    </message>
    <message>
        <source>accessibility_loading</source>
        <extracomment>Read aloud: the indicator of progress.</extracomment>
        <translation>Chargement</translation>
    </message>
    <message>
        <source>accessibility_refresh</source>
        <extracomment>Read aloud: the action that fetches the list of conversations anew.</extracomment>
        <translation>Actualiser</translation>
    </message>
</context>
</TS>
