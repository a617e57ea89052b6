// SPDX-License-Identifier: MIT
// The dialog for custom pushes, whose payload starts as the backend's own push for the ticket.
import {byId} from './dom.js';
import {sendPush} from './api.js';

const dialog = byId('push-dialog');
const payload = byId('push-payload');
const kind = byId('push-kind');

let ticket = null;

function unstoredMessage() {
    const timestamp = new Date().toISOString().replace(/\.\d+Z$/u, '+0000');
    return {
        id: `custom-${Date.now()}`,
        ticketId: ticket.id,
        sender: {id: 'custom-agent', name: 'Custom push', type: 'human agent'},
        content: 'A custom push.',
        isRead: false,
        timestamp,
    };
}

const newestReply = () =>
    ticket.messages.findLast((message) => message.sender.type !== 'customer') ?? unstoredMessage();

const payloads = {
    message: () => ({message: newestReply()}),
    unstored: () => ({message: unstoredMessage()}),
    ticketPreview: () => ({
        ticketPreview: {
            id: ticket.id, state: ticket.state, lastMessage: ticket.messages.at(-1),
        },
    }),
};

function fillPayload() {
    payload.value = JSON.stringify({source: 'tolvane', ...payloads[kind.value]()}, null, 2);
    byId('push-failure').textContent = '';
}

/** Opens the dialog for a ticket. */
export function openPush(shownTicket) {
    if (!shownTicket)
        return;
    ticket = shownTicket;
    byId('push-target').textContent = ticket.takesPushes
        ? 'The payload is sent to the customer’s device unchanged.'
        : 'The customer has not registered a device yet.';
    fillPayload();
    dialog.showModal();
    kind.focus();
}

async function send(sent) {
    try {
        await sendPush(ticket.id, JSON.parse(payload.value));
        dialog.close();
        sent();
    } catch (error) {
        byId('push-failure').textContent =
            error instanceof SyntaxError ? `Invalid JSON: ${error.message}` : error.message;
    }
}

/** `sent` is called after each push. */
export function startPush(sent) {
    kind.addEventListener('change', fillPayload);
    dialog.addEventListener('submit', (event) => {
        event.preventDefault();
        send(sent);
    });
}
