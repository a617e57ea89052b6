<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Library</name>
    <message>
        <source>main_title</source>
        <extracomment>Greeting at the top of the home screen. A waving hand follows at once, so it ends with a blank.</extracomment>
        <translation>Hello! </translation>
    </message>
    <message>
        <source>main_subtitle</source>
        <extracomment>Second line of the home screen, beneath the greeting.</extracomment>
        <translation>How can we help?</translation>
    </message>
    <message>
        <source>ticket_list_your_messages</source>
        <extracomment>Heading above the list of the customer's conversations.</extracomment>
        <translation>Your messages</translation>
    </message>
    <message>
        <source>main_sender_customer_name</source>
        <extracomment>Stands as the sender's name on what the customer wrote. Alone, so with a capital.</extracomment>
        <translation>You</translation>
    </message>
    <message>
        <source>timeago_invalid</source>
        <extracomment>In place of an age, where the date of a message cannot be read.</extracomment>
        <translation>Unknown time</translation>
    </message>
    <message>
        <source>timeago_now</source>
        <extracomment>Age of a message: less than a minute.</extracomment>
        <translation>Just now</translation>
    </message>
    <message>
        <source>timeago_more_than_a_week</source>
        <extracomment>Age of a message: a week or more.</extracomment>
        <translation>More than a week ago</translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_minutes</source>
        <extracomment>Age of a message: 1 to 59 minutes. Stands alone, so it begins like a sentence. Keep %Ln, the number, where the language says it.</extracomment>
        <translation>
            <numerusform>%Ln minute ago</numerusform>
            <numerusform>%Ln minutes ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_hours</source>
        <extracomment>Age of a message: 1 to 24 hours. Stands alone, so it begins like a sentence. Keep %Ln, the number, where the language says it.</extracomment>
        <translation>
            <numerusform>%Ln hour ago</numerusform>
            <numerusform>%Ln hours ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%lld timeago_days</source>
        <extracomment>Age of a message: 1 to 6 days. Stands alone, so it begins like a sentence. Keep %Ln, the number, where the language says it.</extracomment>
        <translation>
            <numerusform>%Ln day ago</numerusform>
            <numerusform>%Ln days ago</numerusform>
        </translation>
    </message>
    <message>
        <source>ticket_closed</source>
        <extracomment>In place of the field for writing, where support has ended the conversation.</extracomment>
        <translation>This conversation is closed</translation>
    </message>
    <message>
        <source>ticket_ai_is_typing</source>
        <extracomment>Shown while the AI agent prepares an answer. Animated dots may follow, so there is no full stop.</extracomment>
        <translation>AI agent is typing</translation>
    </message>
    <message>
        <source>accessibility_close</source>
        <extracomment>Read aloud: the button that closes the messenger.</extracomment>
        <translation>Close</translation>
    </message>
    <message>
        <source>accessibility_unread</source>
        <extracomment>Read aloud: the dot on a conversation with messages that the customer has not seen.</extracomment>
        <translation>Unread</translation>
    </message>
    <message>
        <source>accessibility_new_ticket</source>
        <extracomment>Read aloud: the button that begins a new conversation by writing a message.</extracomment>
        <translation>Write a new message</translation>
    </message>
    <message>
        <source>accessibility_loading</source>
        <extracomment>Read aloud: the indicator of progress.</extracomment>
        <translation>Loading</translation>
    </message>
    <message>
        <source>accessibility_refresh</source>
        <extracomment>Read aloud: the action that fetches the list of conversations anew.</extracomment>
        <translation>Refresh</translation>
    </message>
</context>
</TS>
