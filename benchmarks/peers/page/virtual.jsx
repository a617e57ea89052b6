// SPDX-License-Identifier: MIT
import { Virtuoso } from "react-virtuoso";
import { bubble, show } from "./conversation.jsx";

show(({ messages }) => (
  <div className="list">
    <Virtuoso
      data={messages}
      initialTopMostItemIndex={{ index: messages.length - 1, align: "end" }}
      followOutput
      itemContent={(_, message) => <div className="row">{bubble(message)}</div>}
    />
  </div>
));
