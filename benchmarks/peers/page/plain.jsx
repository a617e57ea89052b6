// SPDX-License-Identifier: MIT
import { MessageList } from "@chatscope/chat-ui-kit-react";
import { useLayoutEffect, useRef } from "react";
import { bubble, show } from "./conversation.jsx";

show(function PlainList({ messages }) {
  const list = useRef();
  useLayoutEffect(() => list.current.scrollToBottom("auto"), [messages]);
  return <MessageList ref={list}>{messages.map(bubble)}</MessageList>;
});
