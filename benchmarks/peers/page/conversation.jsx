// SPDX-License-Identifier: MIT
import "@chatscope/chat-ui-kit-styles/dist/default/styles.min.css";
import "./page.css";
import { ChatContainer, MainContainer, Message, MessageInput, MessageList } from "@chatscope/chat-ui-kit-react";
import { useEffect, useState } from "react";
import { createRoot } from "react-dom/client";

// The host defines `request` with the address and the headers.
const ticket = fetch(request.address, { headers: request.headers }).then((response) => response.json());

export function bubble(message) {
  const isOwn = message.sender.type === "customer";
  const side = { direction: isOwn ? "outgoing" : "incoming", position: "single" };
  return (
    <Message key={message.id} model={{ ...side, type: "custom" }}>
      <Message.CustomContent>
        {message.content}
        {message.attachments?.map((address) => <img key={address} src={address} alt="" />)}
      </Message.CustomContent>
    </Message>
  );
}

function Page({ list: List, ticket }) {
  const [messages, setMessages] = useState(ticket.messages);
  useEffect(() => {
    // The host calls this for a push.
    window.receive = (message) => setMessages((previous) => [...previous, message]);
  }, []);
  return (
    <MainContainer>
      <ChatContainer>
        <List as={MessageList} messages={messages} />
        <MessageInput placeholder="Message" autoFocus />
      </ChatContainer>
    </MainContainer>
  );
}

export async function show(list) {
  const root = createRoot(document.getElementById("root"));
  root.render(<Page list={list} ticket={await ticket} />);
}
