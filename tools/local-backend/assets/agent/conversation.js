// SPDX-License-Identifier: MIT
// One ticket's conversation, as it is in the backend.
import {avatar, byId, customerName, element, fillAvatar, timeElement} from './dom.js';
import {readTicket} from './api.js';

// A reader this close to the end wants to stay there.
const nearEnd = 80;

const senderNames = {'ai agent': 'AI', 'human agent': 'Agent'};
const factNames = {
    appVersion: 'App version', appBuild: 'App build', deviceModel: 'Device', deviceName: 'Name',
    osVersion: 'System', locale: 'Language', timezone: 'Time zone', batteryLevel: 'Battery',
    batteryState: 'Battery state', screenWidth: 'Screen width', screenHeight: 'Screen height',
};

const messages = byId('messages');

let shownId = null;
let shown = null;
let isReading = false;
let isOutdated = false;
let report = () => {};

export const shownTicket = () => shown;

function openImage(address) {
    byId('viewed-image').src = address;
    byId('viewed-link').href = address;
    byId('viewer').showModal();
}

function fileName(address) {
    try {
        return decodeURIComponent(address.slice(address.lastIndexOf('/') + 1));
    } catch {
        return 'attachment';
    }
}

function attachment(address) {
    const name = fileName(address);
    const image = element('img', {src: address, alt: name});
    const button = element('button', {
        type: 'button', className: 'thumbnail', 'aria-label': `Open ${name}`,
    }, image);
    button.addEventListener('click', () => openImage(address));
    image.addEventListener('load', keepEnd);
    // What is no image can still be had.
    image.addEventListener('error', () => button.replaceWith(element('a', {
        href: address, target: '_blank', rel: 'noopener', className: 'file',
    }, name)));
    return button;
}

function messageElement(message) {
    const {sender} = message;
    const isCustomer = sender.type === 'customer';
    const name = isCustomer ? customerName(shown) : sender.name || senderNames[sender.type];
    const made = element('li', {
        'data-message-id': message.id, 'data-sender': sender.type,
    });
    const text = message.content
        ? element('p', {className: 'text', dir: 'auto'}, message.content) : null;
    const images = (message.attachments ?? []).map(attachment);
    made.append(
        avatar(name, sender.profilePicture),
        element('div', {className: 'bubble'},
            text,
            images.length ? element('div', {className: 'thumbnails'}, ...images) : null),
        element('p', {className: 'caption'},
            element('span', {dir: 'auto'}, name), ' · ', timeElement(message.timestamp),
            element('span', {className: 'read'}, '')),
    );
    const picture = made.querySelector('.avatar img');
    picture?.addEventListener('error', () => fillAvatar(picture.parentElement, name));
    return made;
}

function markRead(row, message) {
    const isAgents = message.sender.type !== 'customer';
    row.querySelector('.read').textContent = isAgents && message.isRead ? ' · Read' : '';
}

const distanceToEnd = () =>
    messages.scrollHeight - messages.scrollTop - messages.clientHeight;
const toEnd = () => { messages.scrollTop = messages.scrollHeight; };
let staysAtEnd = true;
let lastTop = 0;

function keepEnd() {
    if (staysAtEnd)
        toEnd();
}

function renderMessages() {
    const known = new Map([...messages.children].map((row) => [row.dataset.messageId, row]));
    const added = shown.messages.filter((message) => !known.has(message.id)).map(messageElement);
    messages.append(...added);
    const rows = new Map([...messages.children].map((row) => [row.dataset.messageId, row]));
    for (const message of shown.messages)
        markRead(rows.get(message.id), message);
    if (added.some((row) => row.dataset.sender !== 'customer'))
        staysAtEnd = true;
    keepEnd();
}

function renderFacts() {
    const facts = [
        ['Customer', shown.customer.id], ['Mail', shown.customer.email],
        ['Host\'s id', shown.customer.originalId], ['Ticket', shown.id], ['Channel', shown.channel],
        ['Pushes', shown.takesPushes ? 'A device is registered' : 'No device is registered'],
        ...Object.entries(factNames).map(([key, name]) => [name, shown.device[key]]),
    ];
    byId('facts').replaceChildren(...facts.filter(([, value]) => value).map(([name, value]) =>
        element('div', {}, element('dt', {}, name), element('dd', {dir: 'auto'}, value))));
}

function statusText({state, assignee, automatic}) {
    const who = assignee === 'ai agent' ? 'assigned to the AI' : 'assigned to a human';
    const how = automatic ? 'answered automatically' : 'answered by hand';
    return `${state === 'open' ? 'Open' : 'Closed'}, ${who}, ${how}`;
}

function render() {
    byId('conversation').dataset.ticketId = shown.id;
    byId('conversation').dataset.state = shown.state;
    byId('customer').textContent = customerName(shown);
    byId('ticket-status').textContent = statusText(shown);
    byId('assignee').value = shown.assignee;
    byId('ticket-automatic').checked = shown.automatic;
    byId('change-state').textContent = shown.state === 'open' ? 'Close' : 'Reopen';
    renderFacts();
    renderMessages();
}

/** Reads the conversation anew; what comes meanwhile is read after that. */
export async function refreshConversation() {
    if (!shownId)
        return;
    isOutdated = true;
    if (isReading)
        return;
    isReading = true;
    try {
        while (isOutdated && shownId) {
            isOutdated = false;
            const id = shownId;
            const ticket = await readTicket(id);
            if (id !== shownId)
                continue;
            shown = ticket;
            byId('conversation').hidden = false;
            render();
        }
    } catch (error) {
        report(error);
    } finally {
        isReading = false;
    }
}

/** Shows another ticket, or none. */
export async function showConversation(id) {
    if (id !== shownId) {
        shownId = id;
        shown = null;
        staysAtEnd = true;
        messages.replaceChildren();
        byId('conversation').hidden = true;
    }
    byId('no-conversation').hidden = id !== null;
    await refreshConversation();
}

/** `failed` hears what goes wrong later. */
export function startConversation(failed) {
    report = failed;
    messages.addEventListener('scroll', () => {
        // Only a reader goes up; a layout that grows moves the end away.
        if (distanceToEnd() < nearEnd)
            staysAtEnd = true;
        else if (messages.scrollTop < lastTop)
            staysAtEnd = false;
        lastTop = messages.scrollTop;
    });
    new ResizeObserver(keepEnd).observe(messages);
}
